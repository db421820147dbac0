#include "fakes/workbench.h"

class StartTest : public fakes::WorkbenchTest {
protected:
    StartTest() { desktop.form1 = nullptr; } // of the start before the test
};

TEST_F(StartTest, MissingSettingsOrLanguageFile_EndsInTheRegErrorBox) {
    for (const char* missing : {"Files/Lang/English.lng", "Files/Quillmere.ini"}) {
        std::filesystem::remove(desktop.folder.path() / missing);
        EXPECT_FALSE(start());
        EXPECT_EQ(boxes.back().title, u"Reg Error");
        EXPECT_TRUE(boxes.back().text.starts_with(u"Lib OCX -> Reg ERROR!\r"));
        EXPECT_EQ(desktop.form1, nullptr);
    }
    EXPECT_EQ(boxes.size(), 2U);
}

TEST_F(StartTest, SecondInstance_IsToldBeforeAnyWindow) {
    desktop.systemPort.alreadyRunning = true;
    EXPECT_FALSE(start());
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text + boxes[0].title, u"En0En1");
    EXPECT_EQ(desktop.form1, nullptr);
}

TEST_F(StartTest, NoLanguageInTheSettings_IsChosenByCountry_AndKept) {
    desktop.laySettingsWith({{1, ""}});
    desktop.systemPort.country = u"Italy";
    desktop.layLanguage("Italiano.lng");
    ASSERT_TRUE(start());
    EXPECT_EQ(form().mnuApri.caption.get(), u"&It3");
    form().mnuEsci.Click();
    EXPECT_EQ(desktop.savedLine(1), "Italiano.lng");
}

TEST_F(StartTest, PathInQuotes_Opens_AndBareOnesAreRefused) {
    const base::Text path = desktop.layMedia("a, b.mp3", 60);
    ASSERT_TRUE(start(u'"' + path + u'"'));
    EXPECT_TRUE(form().isPlaying());
    EXPECT_EQ(player.URL(), path);
    for (const base::Text nothing : {u"\"", u"\"\"", u"   "})
        EXPECT_TRUE(start(nothing)) << base::toUtf8(nothing);
    EXPECT_TRUE(boxes.empty());

    // Without quotes the path plays for a moment, is closed, and its name then lacks the first and the last
    // letter.
    player.commands.clear();
    ASSERT_TRUE(start(path));
    EXPECT_EQ(player.commands.front(), "load");
    EXPECT_FALSE(form().cmdPlay.enabled);
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, u"En98");
}

TEST_F(StartTest, UpdateItem_NeverTakesItsCaptionFromTheTable_ButGreysOnATruthValueThere) {
    const std::pair<std::string, bool> rows[] = {{"Check", true}, {"False", false}, {"0", false},
                                                 {"-1", true},    {"", true},       {"0x", true},
                                                 {"...", true},   {"1.2.3", true}};
    for (const auto& [entry, enabled] : rows) {
        desktop.layLanguage("English.lng", 136, {{133, entry}});
        ASSERT_TRUE(start());
        EXPECT_EQ(form().mnuCheckUpdateStartup.enabled, enabled) << entry;
        EXPECT_EQ(form().mnuCheckUpdateStartup.caption.get(), u"Controlla aggiornamenti all'avvio");
    }
    EXPECT_EQ(form().mnuLingua.caption.get(), u"&&En15") << "others get their mnemonic in front";
}

TEST_F(StartTest, EveryCommand_OfBothMenuBars_HasItsRoutineWhenItIsShown) {
    // Spelling has none, and its menu is never shown.
    EXPECT_EQ(desktop.shownWithoutRoutine, std::vector<std::string_view>{"mnuOrtografia"});
}

TEST_F(StartTest, Closing_SavesStopsAndEnds) {
    desktop.laySettingsWith({{8, "0"}, {23, "1"}});
    ASSERT_TRUE(start(u'"' + desktop.layMedia("a.mp3", 60) + u'"'));
    desktop.laySettings({"rubbish"});
    EXPECT_FALSE(form().Unload());
    EXPECT_TRUE(desktop.systemPort.ended);
    EXPECT_EQ(player.commands.back(), "stop");
    EXPECT_EQ(desktop.savedLine(1), "English.lng");
    // Nothing of the program runs any more: not the watch on the player, which would take the stop for the
    // end of the recording, nor what stands for the windows that are gone.
    desktop.loop.advance(1000);
    EXPECT_EQ(desktop.savedLine(8) + desktop.savedLine(23), "01");
}
