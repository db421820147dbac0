#include "fakes/workbench.h"

#include "lang/words.h"
#include "safety/archive.h"

using lang::operator""_en;

struct SafetyWindowsTest : fakes::WorkbenchTest {
    safety::Archive& archive() { return program->workstation().safety().archive(); }
    safety::VersionsWindow& openVersions() {
        command("mnuEarlierVersions").Click();
        return *desktop.versions;
    }
};

TEST_F(SafetyWindowsTest, TranscriptMenu_FollowsTheLanguage) {
    EXPECT_EQ(desktop.form2->menuBar.back()->caption.get(), u"T&ranscript");
    desktop.layLanguage("Deutsch.lng");
    desktop.folder.write("Files/Lang/Deutsch.words", "T&ranscript\t&Abschrift\r\n&What happened\tVerlauf");
    desktop.dialogPort.choices.push_back(desktop.folder.text("Files/Lang/Deutsch.lng"));
    form().mnuLingua.Click();
    EXPECT_EQ(desktop.form2->menuBar.back()->caption.get(), u"&Abschrift");
    EXPECT_EQ(command("mnuWhatHappened").caption.get(), u"Verlauf");
    EXPECT_EQ(lang::filledIn(u"%1 and %2, %1%", {u"%2", u"b"}), u"%2 and b, %2%");
}

TEST_F(SafetyWindowsTest, QuietLine_AppearsBelowItsWindow_HidesByItself_AndIsListed) {
    safety::Notices& notices = program->workstation().notices();
    desktop.form2->visible = true;
    desktop.form2->top = 3000;
    desktop.form2->height = 5000;
    notices.tell(u"one"_en);
    notices.tell(u"two"_en);
    notices.tell(u"two"_en);
    desktop.loop.advance(250);
    ASSERT_NE(desktop.quietLine, nullptr);
    EXPECT_EQ(desktop.quietLine->caption.get(), u"one\ntwo");
    desktop.loop.advance(7900);
    EXPECT_TRUE(desktop.quietLine->visible);
    desktop.loop.advance(200);
    EXPECT_FALSE(desktop.quietLine->visible);
    notices.tell(u"three %1"_en, {u"!"}, &form());
    desktop.loop.advance(250);
    EXPECT_EQ(desktop.quietLine->caption.get(), u"three !");
    desktop.quietLine->Click();
    EXPECT_FALSE(desktop.quietLine->visible);

    command("mnuWhatHappened").Click();
    for (int n = 0; n < 60; ++n)
        notices.tell(u"no. %1"_en, {base::fromUtf8(std::to_string(n))});
    ASSERT_EQ(desktop.notices->List1.items->size(), safety::Notices::most);
    EXPECT_TRUE(desktop.notices->List1.items->front().ends_with(u"\tno. 59"));
}

TEST_F(SafetyWindowsTest, QuietLine_CoversNoControl) {
    desktop.form2->visible = true;
    desktop.form2->left = 1500;
    program->workstation().notices().tell(u"one"_en);
    desktop.loop.advance(250);
    safety::QuietLineWindow& line = *desktop.quietLine;
    line.width = 3000;
    line.height = 450;
    // The editor's top, height and width, another window, and where the line is on a screen of 28800 x 16200.
    const struct {
        double top, height, width;
        controls::Box other;
        double left, lineTop;
    } rows[] = {
        {3000, 5000, 9000, {}, 4500, 8045},
        {3000, 5000, 9000, {0, 8000, 20000, 3000}, 10545, 7550},
        {3000, 5000, 9000, {0, 7000, 28800, 3000}, 4500, 10045},
        {3000, 13200, 9000, {}, 10545, 15750},
        {3000, 13200, 9000, {10500, 9000, 3000, 9000}, 5347.5, 15105},
        {0, 16200, 28800, {}, 5347.5, 15105},
    };
    for (const auto& row : rows) {
        desktop.form2->top = row.top;
        desktop.form2->height = row.height;
        desktop.form2->width = row.width;
        form().screen.occupied = [&] {
            return std::vector{controls::Box{1500, row.top, row.width, row.height}, row.other};
        };
        desktop.loop.advance(200);
        EXPECT_EQ(line.left, row.left);
        EXPECT_EQ(line.top, row.lineTop);
    }
}

TEST_F(SafetyWindowsTest, EarlierVersions_OpenAsNew_NeverOverwrite_AndAreDeletedAfterAQuestion) {
    std::filesystem::create_directories(desktop.folder.path() / "Files/Safety");
    archive().keep(u"old.rtf", "{\\rtf1 first\\par second}", u"rtf", safety::Reason::Exit, 1'700'000'000);
    const safety::VersionsWindow& window = openVersions();
    ASSERT_EQ(window.List1.items->size(), 1U);
    EXPECT_TRUE(window.List1.items->front().ends_with(u"\t1 KB\tNot saved at the exit"));
    EXPECT_EQ(window.txtVersion.text.get(), u"first\nsecond");

    desktop.folder.write("taken.rtf", "mine");
    desktop.dialogPort.choices = {desktop.folder.text("taken.rtf"), desktop.folder.text("copy.rtf")};
    window.cmdCopy.Click();
    EXPECT_EQ(boxes.size(), 1U) << "a file of that name exists";
    EXPECT_EQ(desktop.folder.read("taken.rtf") + desktop.folder.read("copy.rtf"),
              "mine{\\rtf1 first\\par second}");

    program->workstation().editor().document().FileEditor = u"/somebody/else.rtf";
    window.cmdOpen.Click();
    EXPECT_EQ(program->workstation().editor().document().FileEditor, u"");
    EXPECT_EQ(program->workstation().editor().document().TestoModificato, 1);
    EXPECT_FALSE(window.visible);

    openVersions();
    desktop.dialogPort.answers = {platform::Answer::No, platform::Answer::Yes};
    window.cmdDeleteAll.Click();
    EXPECT_EQ(archive().versions().size(), 1U);
    window.cmdDeleteAll.Click();
    EXPECT_TRUE(archive().versions().empty());
    EXPECT_FALSE(window.cmdDeleteAll.enabled || window.cmdOpen.enabled);
    EXPECT_TRUE(window.lblEmpty.visible);

    desktop.versions->chkKeep.value = false;
    window.chkKeep.Click();
    command("mnuDarkPage").Click();
    EXPECT_TRUE(command("mnuDarkPage").checked && desktop.form2->darkPage);
    EXPECT_THAT(
        desktop.folder.read("Files/Options.ini"),
        testing::AllOf(testing::HasSubstr("KeepVersions=0\r\nVersionDays=30\r\nVersionMegabytes=500\r\n"),
                       testing::HasSubstr("DarkPage=1\r\n")));
}
