#include "fakes/workbench.h"
#include "outside/program_version.h"

using testing::ElementsAre;

struct OutsideTest : fakes::WorkbenchTest {
    std::vector<std::string>& opened = desktop.shellPort.opened;
};

const std::string versionPage = "https://sites.brackenloft.example/site/brackenloftfreeware/ver_qmr.txt";

// Starts the program again with the update check turned on.
struct UpdateCheckTest : OutsideTest {
    UpdateCheckTest() {
        desktop.laySettingsWith({{24, "1"}});
        desktop.layLanguage("English.lng", 136, {{131, "New & <BR>good?<BR>"}});
    }
    void startReading(const std::string& received, platform::Answer answer) {
        desktop.internetPort.pages[versionPage] = received;
        desktop.dialogPort.answers = {answer};
        start();
    }
};

TEST_F(UpdateCheckTest, OnlyNineCharactersAboveTheOwnVersion_AskTheUser) {
    EXPECT_THAT(desktop.internetPort.reads, ElementsAre()) << "with the check turned off";
    const std::pair<std::string, bool> rows[] = {
        {"001015002", false},   {"001015003", true}, {"00101500\xFF", true}, {"00a000000", true},
        {"999999999\n", false}, {"99999999", false}, {"9999999999", false},  {"<!DOCTYPE html><html>", false},
        {"000999999", false},   {"", false},
    };
    for (const auto& [received, asks] : rows) {
        boxes.clear();
        startReading(received, platform::Answer::No);
        ASSERT_EQ(boxes.size(), asks ? 1U : 0U) << received;
        EXPECT_TRUE(!asks || boxes[0].text == u"New & \r\n\r\ngood?\r\n\r\n");
        EXPECT_TRUE(form().visible) << "after No, and after no answer";
    }
    EXPECT_THAT(opened, ElementsAre());
}

TEST_F(UpdateCheckTest, AnswerYes_OpensThePage_AndEndsWithoutSaving) {
    const std::string settings = desktop.folder.read("Files/Quillmere.ini");
    startReading("001015003", platform::Answer::Yes);
    EXPECT_THAT(opened, ElementsAre("https://www.brackenloft.example/quillmere.html"));
    EXPECT_THAT(desktop.internetPort.reads, ElementsAre("Quillmere " + versionPage));
    EXPECT_TRUE(desktop.systemPort.ended);
    EXPECT_FALSE(form().visible) << "the player is never shown";
    EXPECT_EQ(desktop.folder.read("Files/Quillmere.ini"), settings);
}

TEST(Links, GuideDependsOnTheLanguageFile_VersionsHaveThreeDigitsForEachNumberBelow100) {
    const std::pair<base::TextView, base::TextView> rows[] = {{u"ITALIANO.LNG", u"it"},
                                                              {u"Russian.lng", u"ru"},
                                                              {u"polish.lng", u"pl"},
                                                              {u"Italiano.lngx", u"en"},
                                                              {u"", u"en"}};
    for (const auto& [file, code] : rows)
        EXPECT_EQ(outside::guideLanguage(file), code);
    EXPECT_EQ(outside::Version({9, 10, 99}).digits() + outside::Version({1, 100, 2}).digits(),
              "009010099001002");
}

TEST_F(OutsideTest, Commands_OpenTheirPages_AndMinimiseThePlayer) {
    const std::string site = "https://www.brackenloft.example";
    const std::string folder = desktop.folder.path().string();
    const std::pair<controls::MenuItem&, std::string> rows[] = {
        {form().mnuAggiornamenti, site + "/quillmere.html"},
        {form().mnuAggLingua, site + "/quillmere-languages.html"},
        {form().mnuFaiDonazione, site + "/donazioni--donation.html"},
        {form().mnuGuida, folder + "/Files/Help-en.html"},
        {form().mnuVersioni, folder + "/Versioni.txt"}};
    for (const auto& [command, target] : rows) {
        form().windowState = controls::WindowState::Normal;
        command.Click();
        EXPECT_EQ(opened.back(), target);
        EXPECT_EQ(form().windowState, controls::WindowState::Minimised);
    }
}

struct AboutBoxTest : OutsideTest {
    outside::FrmInformazioni& open() {
        form().mnuInfo.Click();
        return *desktop.about;
    }
};

TEST_F(AboutBoxTest, Panel_ScrollsInPausesScrollsOutAndRepeats) {
    const controls::Picture& panel = open().Picture2;
    const std::pair<int, int> road[] = {{0, 2200},  {1, 2190},    {411, -1920}, {120, -1920},
                                        {1, -1930}, {222, -4150}, {1, 2200},    {532, -1920}};
    for (const auto& [ticks, top] : road) {
        desktop.loop.advance(ticks * 10);
        EXPECT_EQ(panel.top, top) << desktop.loop.now();
    }
    EXPECT_EQ(open().Picture2.top, 2200);
}

TEST_F(AboutBoxTest, Windows_AreHidden_AndRestoredAsTheMenusSay) {
    for (const bool editor : {true, false}) {
        if (desktop.form2->visible != editor)
            form().mnuMostraNascondi.Click();
        outside::FrmInformazioni& about = open();
        EXPECT_FALSE(form().visible || desktop.form2->visible);
        EXPECT_TRUE(about.visible);
        about.lblTitle.Click();
        EXPECT_TRUE(form().visible);
        EXPECT_EQ(desktop.form2->visible, editor);
        EXPECT_FALSE(about.visible);
    }
}

TEST_F(AboutBoxTest, Caption_KeepsItsTrailingDots) {
    EXPECT_EQ(open().lblVersion.caption.get(), outside::programVersion.shown());
    for (const auto& [entry, caption] : {std::pair{"&About...", u"About..."}, {"...About us", u"...About"}}) {
        desktop.layLanguage("English.lng", 136, {{19, entry}});
        start();
        EXPECT_EQ(open().caption.get(), caption);
    }
}

TEST_F(OutsideTest, Keys_AreListedFromMenusAndText_SearchedAndPrinted) {
    const auto& menu = program->workstation().editor().form().menuBar.back()->items;
    menu.back()->Click();
    outside::KeysWindow& keys = *desktop.keys;
    const std::vector<base::Text> all = keys.List1.items;
    EXPECT_EQ(all.front(), u"\tIn the player");
    for (const base::TextView row : {u"Ctrl+F4\tEn4", u"Esc\tEn5", u"Ctrl+F6\tEn129", u"Ctrl+B\tBold"})
        EXPECT_GE(std::count(all.begin(), all.end(), row), 1) << base::toUtf8(row);
    const auto search = [&](const base::Text& wanted) {
        keys.txtSearch.text = wanted;
        keys.txtSearch.Change();
        return keys.List1.items.get();
    };
    EXPECT_THAT(search(u" BOLD "), ElementsAre(u"\tIn the text", u"Ctrl+B\tBold"));
    EXPECT_THAT(search(u"no such key"), ElementsAre());
    desktop.printerPort.answer.emplace();
    keys.cmdPrint.Click();
    EXPECT_THAT(desktop.text.commands.back(), testing::HasSubstr("Ctrl+B\\tab Bold\\par"))
        << "all keys, whatever is searched";
}

TEST_F(OutsideTest, EditorHint_DisappearsWhileARecordingIsOpen) {
    EXPECT_TRUE(program->workstation().editor().form().RTBPlace.hint->starts_with(u"Ctrl+O"));
    open("talk.wav", 60);
    EXPECT_EQ(program->workstation().editor().form().RTBPlace.hint.get(), u"");
    form().mnuChiudi.Click();
    EXPECT_FALSE(program->workstation().editor().form().RTBPlace.hint->empty());
}
