#include "fakes/workbench.h"

#include <filesystem>

namespace fs = std::filesystem;

class StartTest : public testing::Test {
protected:
    StartTest() { desktop.laySettings({"English.lng", "80", "561", "5", "2"}); }

    bool start(base::TextView commandLine = u"") {
        program.emplace(desktop);
        return program->Main(commandLine);
    }
    void expectRegError() {
        EXPECT_FALSE(start());
        ASSERT_EQ(desktop.dialogPort.boxes.size(), 1U);
        EXPECT_EQ(desktop.dialogPort.boxes[0].title, u"Reg Error");
        EXPECT_EQ(desktop.dialogPort.boxes[0].text.find(u"Lib OCX -> Reg ERROR!\r"), 0U);
        EXPECT_EQ(desktop.form1, nullptr);
    }

    fakes::FakeDesktop desktop;
    std::optional<app::Program> program;
};

TEST_F(StartTest, MissingSettingsFile_EndsInTheRegErrorBox) {
    fs::remove(desktop.folder.path() / "Files/Quillmere.ini");
    expectRegError();
}

TEST_F(StartTest, MissingLanguageFile_EndsInTheRegErrorBox) {
    desktop.laySettings({"Klingon.lng"});
    expectRegError();
}

TEST_F(StartTest, LanguageFileOf152Lines_EndsInTheRegErrorBox) {
    desktop.layLanguage("English.lng", 151);
    EXPECT_TRUE(start());
    desktop.form1 = nullptr;
    desktop.layLanguage("English.lng", 152);
    expectRegError();
}

TEST_F(StartTest, SecondInstance_IsToldBeforeAnyWindow) {
    desktop.systemPort.alreadyRunning = true;
    EXPECT_FALSE(start());
    ASSERT_EQ(desktop.dialogPort.boxes.size(), 1U);
    EXPECT_EQ(desktop.dialogPort.boxes[0].text, u"En0");
    EXPECT_EQ(desktop.dialogPort.boxes[0].title, u"En1");
    EXPECT_EQ(desktop.form1, nullptr);
}

TEST_F(StartTest, NoLanguageInTheSettings_IsChosenByCountry_AndKept) {
    desktop.laySettings({"", "80"});
    desktop.systemPort.country = u"Italy";
    desktop.layLanguage("Italiano.lng", 136);
    ASSERT_TRUE(start());
    EXPECT_EQ(desktop.form1->mnuApri.caption.get(), u"&It3");
    desktop.form1->mnuEsci.Click();
    EXPECT_EQ(desktop.folder.read("Files/Quillmere.ini").find("Italiano.lng\r\n"), 0U);
}

TEST_F(StartTest, PathInQuotes_Opens_AndBareOnesAreRefused) {
    const base::Text path = desktop.layMedia("a, b.mp3", 60);
    ASSERT_TRUE(start(u'"' + path + u'"'));
    EXPECT_TRUE(desktop.form1->isPlaying());
    EXPECT_EQ(desktop.player.URL(), path);
    EXPECT_TRUE(desktop.dialogPort.boxes.empty());

    // Without quotes the path plays for a moment, is closed, and its name then lacks the first and the last
    // letter.
    desktop.player.commands.clear();
    ASSERT_TRUE(start(path));
    EXPECT_EQ(desktop.player.commands.front(), "load");
    EXPECT_FALSE(desktop.form1->cmdPlay.enabled);
    ASSERT_EQ(desktop.dialogPort.boxes.size(), 1U);
    EXPECT_EQ(desktop.dialogPort.boxes[0].text, u"En98");

    for (const base::Text odd : {u"\"", u"\"\"", u"x"})
        EXPECT_TRUE(start(odd)) << base::toUtf8(odd);
    desktop.dialogPort.boxes.clear();
    EXPECT_TRUE(start(u"   "));
    EXPECT_TRUE(desktop.dialogPort.boxes.empty());
}

TEST_F(StartTest, Captions_ComeFromTheTable_ButForTheOneThatNeverDoes) {
    ASSERT_TRUE(start());
    const player::Form1& form = *desktop.form1;
    EXPECT_TRUE(form.visible);
    EXPECT_EQ(form.caption.get(), u"Quillmere");
    EXPECT_EQ(form.mnuLingua.caption.get(), u"&&En15");
    EXPECT_EQ(form.mnuRegistra.caption.get(), u"&En104...");
    EXPECT_EQ(form.cmdAvanz.tag.get(), u"&En10 ->");
    EXPECT_EQ(form.cmdIndietro.tag.get(), u"<- &En11");
    EXPECT_EQ(form.Image3.toolTip.get(), u" En3 ");
    EXPECT_EQ(form.mnuMostraNascondi.caption.get(), form.Lingua(116)) << "the editor is shown";
    EXPECT_EQ(form.mnuCheckUpdateStartup.caption.get(), u"Controlla aggiornamenti all'avvio");
    EXPECT_TRUE(form.mnuCheckUpdateStartup.enabled);
}

TEST_F(StartTest, Entry133_GreysTheUpdateItem_OnlyAsATruthValue) {
    const std::pair<std::string, bool> rows[] = {{"Check", true}, {"False", false}, {"0", false},
                                                 {"-1", true},    {"", true},       {"true", true},
                                                 {"0x", true}};
    for (const auto& [entry, enabled] : rows) {
        std::string bytes;
        for (int n = 0; n < 136; ++n)
            bytes += "123" + (n == 133 ? entry : std::to_string(n)) + "\r\n";
        desktop.folder.write("Files/Lang/English.lng", bytes);
        ASSERT_TRUE(start());
        EXPECT_EQ(desktop.form1->mnuCheckUpdateStartup.enabled, enabled) << entry;
    }
}

TEST_F(StartTest, EveryCommand_OfBothMenuBars_HasItsRoutine) {
    ASSERT_TRUE(start(u'"' + desktop.layMedia("a.mp3", 60) + u'"'));
    std::vector<controls::MenuItem*> items = desktop.form1->menuBar;
    items.insert(items.end(), desktop.form2->menuBar.begin(), desktop.form2->menuBar.end());
    std::vector<std::string_view> without;
    while (!items.empty()) {
        const controls::MenuItem& item = *items.back();
        items.pop_back();
        items.insert(items.end(), item.items.begin(), item.items.end());
        if (item.items.empty() && item.caption.get() != u"-" && !item.Click)
            without.push_back(item.name);
    }
    // Spelling has none, and its menu is never shown.
    EXPECT_EQ(without, std::vector<std::string_view>{"mnuOrtografia"});
}

TEST_F(StartTest, Exit_SavesStopsAndEnds_ByEachOfItsThreeWays) {
    const std::function<void()> ways[] = {[&] { desktop.form1->mnuEsci.Click(); },
                                          [&] {
                                              platform::KeyEvent escape{27};
                                              desktop.form1->KeyDown(escape);
                                          },
                                          [&] { EXPECT_FALSE(desktop.form1->Unload()); }};
    for (const auto& way : ways) {
        ASSERT_TRUE(start(u'"' + desktop.layMedia("a.mp3", 60) + u'"'));
        desktop.systemPort.ended = false;
        desktop.laySettings({"rubbish"});
        way();
        EXPECT_TRUE(desktop.systemPort.ended);
        EXPECT_EQ(desktop.player.commands.back(), "stop");
        EXPECT_EQ(desktop.folder.read("Files/Quillmere.ini").find("English.lng\r\n80\r\n561\r\n5\r\n2\r\n"),
                  0U);
    }
}
