#include "fakes/workbench.h"

struct StartTest : fakes::WorkbenchTest {
    StartTest() { desktop.form1 = nullptr; } // left from the start before the test
};

TEST_F(StartTest, MissingSettingsOrLanguageFile_ShowsTheRegErrorBox) {
    for (const char* missing : {"Files/Lang/English.lng", "Files/Quillmere.ini"}) {
        std::filesystem::remove(desktop.folder.path() / missing);
        EXPECT_FALSE(start());
        EXPECT_EQ(boxes.back().title, u"Reg Error");
        EXPECT_TRUE(boxes.back().text.starts_with(u"Lib OCX -> Reg ERROR!\r"));
        EXPECT_EQ(desktop.form1, nullptr);
    }
    EXPECT_EQ(boxes.size(), 2U);
}

TEST_F(StartTest, SecondInstance_IsReported_BeforeAnyWindow) {
    desktop.systemPort.alreadyRunning = true;
    EXPECT_FALSE(start());
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text + boxes[0].title, u"En0En1");
    EXPECT_EQ(desktop.form1, nullptr);
}

TEST_F(StartTest, NoLanguageInTheSettings_ChoosesByCountry_AndSavesIt) {
    desktop.laySettingsWith({{1, ""}});
    desktop.systemPort.country = u"Italy";
    desktop.layLanguage("Italiano.lng");
    ASSERT_TRUE(start());
    EXPECT_EQ(form().mnuApri.caption.get(), u"&It3");
    form().mnuEsci.Click();
    EXPECT_EQ(desktop.savedLine(1), "Italiano.lng");
}

TEST_F(StartTest, QuotedPath_Opens_UnquotedPath_IsRefused) {
    const base::Text path = desktop.layMedia("a, b.mp3", 60);
    ASSERT_TRUE(start(u'"' + path + u'"'));
    EXPECT_TRUE(form().isPlaying());
    EXPECT_EQ(player.URL(), path);
    for (const base::Text nothing : {u"\"", u"\"\"", u"   "})
        EXPECT_TRUE(start(nothing)) << base::toUtf8(nothing);
    EXPECT_TRUE(boxes.empty());

    // Without quotes, the path plays for a moment and is closed; then its name lacks the first and the last
    // character.
    player.commands.clear();
    ASSERT_TRUE(start(path));
    EXPECT_EQ(player.commands.front(), "load");
    EXPECT_FALSE(form().cmdPlay.enabled);
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, u"En98");
}

TEST_F(StartTest, UpdateItem_IgnoresItsCaptionInTheTable_ButIsDisabledByABooleanThere) {
    const std::pair<std::string, bool> rows[] = {{"Check", true}, {"False", false}, {"0", false},
                                                 {"-1", true},    {"", true},       {"0x", true},
                                                 {"...", true},   {"1.2.3", true}};
    for (const auto& [entry, enabled] : rows) {
        desktop.layLanguage("English.lng", 136, {{133, entry}});
        ASSERT_TRUE(start());
        EXPECT_EQ(form().mnuCheckUpdateStartup.enabled, enabled) << entry;
        EXPECT_EQ(form().mnuCheckUpdateStartup.caption.get(), u"Controlla aggiornamenti all'avvio");
    }
    EXPECT_EQ(form().mnuLingua.caption.get(), u"&&En15") << "other captions get a leading mnemonic";
}

TEST_F(StartTest, EveryMenuCommand_HasItsRoutine_WhenFirstShown) {
    // Spelling has no routine, and its menu is never shown.
    EXPECT_EQ(desktop.shownWithoutRoutine, std::vector<std::string_view>{"mnuOrtografia"});
}

TEST_F(StartTest, Close_SavesStopsAndEnds) {
    desktop.laySettingsWith({{8, "0"}, {23, "1"}});
    ASSERT_TRUE(start(u'"' + desktop.layMedia("a.mp3", 60) + u'"'));
    desktop.folder.write("Files/Quillmere.ini", "rubbish\r\n");
    EXPECT_FALSE(form().Unload());
    EXPECT_TRUE(desktop.systemPort.ended);
    EXPECT_EQ(player.commands.back(), "stop");
    EXPECT_EQ(desktop.savedLine(1), "English.lng");
    // Nothing of the program runs any more: neither the player's timer, which would take the stop for the end
    // of the recording, nor the views of the closed windows.
    desktop.loop.advance(1000);
    EXPECT_EQ(desktop.savedLine(8) + desktop.savedLine(23), "01");
}
