#include "fakes/workbench.h"
#include "outside/program_version.h"

using testing::ElementsAre;

namespace {

// The program started once more, with the update check switched on, on an internet that answers so.
class UpdateStart {
public:
    explicit UpdateStart(const std::string& received, platform::Answer answer = platform::Answer::No) {
        std::vector<std::string> settings(25, "0");
        settings[0] = "English.lng";
        settings[23] = "1";
        desktop.laySettings(settings);
        desktop.folder.write("Files/Lang/English.lng", languageWithQuestion());
        desktop.internetPort.answer = received;
        desktop.dialogPort.answers = {answer};
        program.emplace(desktop);
        started = program->Main(u"");
    }

    static std::string languageWithQuestion() {
        std::string bytes;
        for (int n = 0; n < 136; ++n)
            bytes += n == 131 ? "131New & <BR>good?<BR>\r\n" : "123&En" + std::to_string(n) + "\r\n";
        return bytes;
    }

    fakes::FakeDesktop desktop;
    std::optional<app::Program> program;
    bool started = false;
};

} // namespace

TEST(UpdateCheck, NothingButNineCharactersAboveTheOwnVersion_AsksTheUser) {
    const struct {
        std::string received;
        bool asks;
    } rows[] = {{"001015002", false},     {"001015003", true},    {"001015001", false},
                {"002000000", true},      {"00a000000", true},    {"1.2.3", false},
                {"999999999\r\n", false}, {"999999999\n", false}, {"", false},
                {"99999999", false},      {"9999999999", false},  {"<!DOCTYPE html><html>", false},
                {"000999999", false},     {"00101500\xFF", true}, {std::string(9, '\0'), false}};
    for (const auto& row : rows) {
        UpdateStart start(row.received);
        const auto& boxes = start.desktop.dialogPort.boxes;
        ASSERT_EQ(boxes.size(), row.asks ? 1U : 0U) << row.received;
        EXPECT_TRUE(start.desktop.form1->visible) << "after a No and after silence alike";
        EXPECT_FALSE(start.desktop.systemPort.ended);
        EXPECT_THAT(start.desktop.shellPort.opened, ElementsAre());
        if (row.asks) {
            EXPECT_EQ(boxes[0].text, u"New & \r\n\r\ngood?\r\n\r\n");
            EXPECT_EQ(boxes[0].title, u"&En132");
            EXPECT_EQ(boxes[0].style, platform::BoxStyle::YesNoInformation);
        }
    }
}

TEST(UpdateCheck, Yes_OpensThePage_AndEndsWithoutSaving) {
    UpdateStart start("001015003", platform::Answer::Yes);
    EXPECT_THAT(start.desktop.shellPort.opened,
                ElementsAre("https://www.brackenloft.example/quillmere.html"));
    EXPECT_THAT(
        start.desktop.internetPort.reads,
        ElementsAre("Quillmere https://sites.brackenloft.example/site/brackenloftfreeware/ver_qmr.txt"));
    EXPECT_TRUE(start.desktop.systemPort.ended);
    EXPECT_FALSE(start.desktop.form1->visible) << "the player is never seen";
    EXPECT_EQ(start.desktop.folder.read("Files/Quillmere.ini").substr(0, 18), "English.lng\r\n0\r\n0\r")
        << "as it was";
}

TEST(UpdateCheck, RunsOnlyWhenTheSettingsSayOne_AndTheMarkIsAllThatTheCommandChanges) {
    fakes::Workbench bench;
    EXPECT_THAT(bench.desktop.internetPort.reads, ElementsAre());
    for (const bool marked : {true, false}) {
        bench.form().mnuCheckUpdateStartup.Click();
        EXPECT_EQ(bench.form().mnuCheckUpdateStartup.checked, marked);
    }
    EXPECT_THAT(bench.desktop.internetPort.reads, ElementsAre());
}

TEST(Version, Digits_HaveThreePlacesEach_AndNoneFromAHundredOn) {
    const std::pair<outside::Version, const char*> rows[] = {{{1, 15, 2}, "001015002"},
                                                             {{0, 0, 0}, "000000000"},
                                                             {{9, 10, 99}, "009010099"},
                                                             {{1, 100, 2}, "001002"}};
    for (const auto& [version, digits] : rows)
        EXPECT_EQ(version.digits(), digits);
}

TEST(Links, EachCommand_OpensItsTarget_AndMakesRoomForIt) {
    const struct {
        controls::MenuItem player::Form1Menu::*command;
        const char* target;
    } rows[] = {
        {&player::Form1Menu::mnuAggiornamenti, "https://www.brackenloft.example/quillmere.html"},
        {&player::Form1Menu::mnuAggLingua, "https://www.brackenloft.example/quillmere-languages.html"},
        {&player::Form1Menu::mnuFaiDonazione, "https://www.brackenloft.example/donazioni--donation.html"},
        {&player::Form1Menu::mnuGuida, "/Files/Help-en.html"},
        {&player::Form1Menu::mnuVersioni, "/Versioni.txt"},
    };
    for (const auto& row : rows) {
        fakes::Workbench bench;
        bench.desktop.form2->visible = true;
        (bench.form().*row.command).Click();
        ASSERT_EQ(bench.desktop.shellPort.opened.size(), 1U);
        EXPECT_THAT(bench.desktop.shellPort.opened[0], testing::EndsWith(row.target));
        EXPECT_EQ(bench.form().windowState, controls::WindowState::Minimised);
        EXPECT_TRUE(bench.desktop.form2->visible) << "left to the minimising";
    }
    fakes::Workbench bench;
    bench.form().mnuImpostaAudio.Click();
    EXPECT_THAT(bench.desktop.shellPort.opened, ElementsAre("sound settings"));
    EXPECT_EQ(bench.form().windowState, controls::WindowState::Normal);
}

TEST(Links, Guide_GoesByTheLanguageFile_InAnyCase) {
    const std::pair<base::TextView, base::TextView> rows[] = {{u"ITALIANO.LNG", u"it"},
                                                              {u"Russian.lng", u"ru"},
                                                              {u"polish.lng", u"pl"},
                                                              {u"Nederlands.lng", u"en"},
                                                              {u"English.lng", u"en"},
                                                              {u"Italiano.lngx", u"en"},
                                                              {u"", u"en"}};
    for (const auto& [file, code] : rows)
        EXPECT_EQ(outside::guideLanguage(file), code) << base::toUtf8(file);
}

class AboutBoxTest : public testing::Test {
protected:
    void open() {
        bench.form().mnuInfo.Click();
        ASSERT_NE(bench.desktop.about, nullptr);
        about = bench.desktop.about;
    }
    double panelAfter(int ms) {
        bench.desktop.loop.advance(ms);
        return about->Picture2.top;
    }

    fakes::Workbench bench;
    outside::FrmInformazioni* about = nullptr;
};

TEST_F(AboutBoxTest, Panel_ScrollsHaltsLeavesAndBeginsAnew) {
    open();
    EXPECT_EQ(about->Picture2.top, 2200);
    EXPECT_EQ(panelAfter(10), 2190);
    EXPECT_EQ(panelAfter(411 * 10), -1920);
    EXPECT_EQ(panelAfter(120 * 10), -1920) << "the last tick of the halt";
    EXPECT_EQ(panelAfter(10), -1930);
    EXPECT_EQ(panelAfter(222 * 10), -4150);
    EXPECT_EQ(panelAfter(10), 2200) << "past -4155";
    EXPECT_EQ(panelAfter(412 * 10), -1920);
    EXPECT_EQ(panelAfter(120 * 10), -1920) << "halts again";
    about->Unload();
    EXPECT_EQ(panelAfter(5000), -1920);
    open();
    EXPECT_EQ(about->Picture2.top, 2200);
}

TEST_F(AboutBoxTest, Windows_MakeRoom_AndThoseThatTheMenusNameComeBack) {
    for (const bool editor : {true, false}) {
        if (bench.desktop.form2->visible != editor)
            bench.form().mnuMostraNascondi.Click();
        open();
        EXPECT_FALSE(bench.form().visible || bench.desktop.form2->visible);
        EXPECT_TRUE(about->visible);
        about->Unload();
        EXPECT_TRUE(bench.form().visible);
        EXPECT_EQ(bench.desktop.form2->visible, editor);
        EXPECT_FALSE(about->visible);
    }
}

TEST_F(AboutBoxTest, Texts_FollowTheLanguage_AndTheCaptionKeepsItsDots) {
    const std::pair<const char*, base::TextView> captions[] = {
        {"&About...", u"About..."}, {"...About us", u"...About"}, {"&...", u""}};
    for (const auto& [entry, caption] : captions) {
        std::string language;
        for (int n = 0; n < 136; ++n)
            language += n == 19 ? "019" + std::string(entry) + "\r\n" : "000&w" + std::to_string(n) + "\r\n";
        bench.desktop.folder.write("Files/Lang/Other.lng", language);
        bench.desktop.dialogPort.choices = {bench.desktop.folder.text("Files/Lang/Other.lng")};
        bench.form().mnuLingua.Click();
        open();
        EXPECT_EQ(about->caption.get(), caption);
        EXPECT_EQ(about->lblTitle.caption.get(), u"Quillmere Free");
        EXPECT_EQ(about->lblVersion.caption.get(), u"1.15.0.2");
        EXPECT_EQ(about->lblHomePageCap.caption.get(), u"&w118:");
        EXPECT_EQ(about->lblDescription.caption.get(), u"&w22");
        EXPECT_THAT(base::toUtf8(about->lblCopyright.caption.get()), testing::EndsWith(" - &w23"));
        EXPECT_EQ(about->lblVersion.left, about->lblTitle.left + about->lblTitle.width + 150);
        about->Unload();
    }
}

TEST_F(AboutBoxTest, ClickOrEsc_ClosesIt_AndTheAddressDoesNot) {
    bench.form().Image4.Click();
    open();
    about->lblHomePage.Click();
    EXPECT_THAT(bench.desktop.shellPort.opened, ElementsAre("https://www.brackenloft.example"));
    EXPECT_TRUE(about->visible);
    EXPECT_EQ(bench.form().windowState, controls::WindowState::Normal);
    for (controls::Control* closes : std::initializer_list<controls::Control*>{
             about, &about->imgTitle, &about->lblCopyright, &about->lblDescription, &about->lblHomePageCap,
             &about->lblTitle, &about->lblVersion}) {
        open();
        closes->Click();
        EXPECT_FALSE(about->visible) << closes->name;
    }
    open();
    platform::KeyEvent key{platform::escapeKey, 0};
    about->KeyDown(key);
    EXPECT_FALSE(about->visible);
}
