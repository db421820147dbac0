#include "fakes/workbench.h"

// Successive runs of the program in the same folder.
struct SafetyTest : fakes::WorkbenchTest {
    // Destroying a run without an exit simulates a kill.
    void start() {
        program.reset();
        std::destroy_at(&desktop.text);
        std::construct_at(&desktop.text);
        ASSERT_TRUE(Workbench::start());
    }
    app::Workstation& workstation() { return program->workstation(); }
    editor::Document& document() { return workstation().editor().document(); }
    void type(base::TextView text) {
        desktop.text.type(text);
        desktop.loop.advance(1000);
    }
    void saveAs(const std::string& name) {
        desktop.dialogPort.choices = {desktop.folder.text(name)};
        document().save();
    }
    void expectAfterStart(base::TextView text) {
        start();
        EXPECT_EQ(desktop.text.Text(), text);
    }
    void quit(platform::Answer answer) {
        desktop.dialogPort.answers = {answer};
        form().Unload();
    }
    std::vector<std::string> archived() {
        std::vector<std::string> names;
        for (const safety::Version& version : workstation().safety().archive().versions())
            names.push_back(base::toUtf8(version.document) + ": " +
                            base::toUtf8(base::afterLast(version.path, u'[')));
        return names;
    }
    // The newest notice, without what stands for its %1.
    std::string told() {
        const auto& all = workstation().notices().all();
        return all.empty() ? "" : base::toUtf8(all.front().sentence);
    }
};

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Names = std::vector<std::string>;

TEST_F(SafetyTest, Kill_RestoresTextCaretAndModifiedFlag) {
    desktop.text.setText(u"");
    type(u"first\r\nsecond");
    desktop.text.setSelStart(3);
    type(u"X");
    expectAfterStart(u"firXst\r\nsecond");
    EXPECT_EQ(desktop.text.SelStart(), 4);
    EXPECT_EQ(document().TestoModificato, 1);
    EXPECT_EQ(desktop.form2->caption.get(), u"&En96 - &En97 1");
    desktop.loop.advance(1000);
    expectAfterStart(u"firXst\r\nsecond"); // killed again before anything was typed
}

TEST_F(SafetyTest, SaveOrNormalExit_RestoresNothing) {
    type(u"saved");
    saveAs("a.rtf");
    desktop.loop.advance(1000);
    expectAfterStart(u""); // the journal knows that the text is saved
    type(u"one");
    saveAs("b.rtf");
    type(u"two");
    desktop.text.type(u"three");
    document().save(); // and killed within a moment
    expectAfterStart(u"");
    type(u"given up");
    quit(platform::Answer::No);
    EXPECT_FALSE(base::fileExists(desktop.folder.text("Files/Safety/Journal")));
    EXPECT_EQ(archived(), (Names{"&En97 1: exit].rtf"}));
    expectAfterStart(u"");
    EXPECT_THAT(told(), HasSubstr("at the last exit"));
}

TEST_F(SafetyTest, DiscardedText_IsArchived) {
    type(u"replaced by a new one");
    desktop.dialogPort.answers = {platform::Answer::No};
    document().newDocument();
    EXPECT_EQ(archived(), (Names{"&En97 1: replaced].rtf"}));

    type(u"mine");
    desktop.folder.write("b.rtf", "{\\rtf1 theirs}");
    desktop.dialogPort.answers = {platform::Answer::Yes};
    saveAs("b.rtf");
    EXPECT_EQ(archived().front(), "b.rtf: replaced].rtf");

    type(u"lost");
    desktop.form2->visible = false;
    form().Unload();
    EXPECT_EQ(archived().size(), 3U) << "the exit does not ask about a hidden editor";
}

TEST_F(SafetyTest, FileWrittenInPlace_IsArchived_SettingsOnlyUntilWritten) {
    const std::filesystem::path folder = desktop.folder.path();
    type(u"mine");
    saveAs("c.rtf");
    std::filesystem::create_hard_link(folder / "c.rtf", folder / "d.rtf");
    std::filesystem::create_hard_link(folder / "Files/Quillmere.ini", folder / "Files/b.ini");
    type(u"more");
    document().save();
    EXPECT_NE(desktop.folder.read("d.rtf").find("more"), std::string::npos);
    EXPECT_EQ(archived(), (Names{"c.rtf: written over].rtf"}));
    form().Unload();
    EXPECT_EQ(std::filesystem::hard_link_count(folder / "Files/Quillmere.ini"), 2U);
    EXPECT_EQ(archived().size(), 1U);
}

TEST_F(SafetyTest, OverwrittenFile_IsArchived_IfItHeldMoreThanTheText) {
    const base::Text path = desktop.folder.text("a.rtf");
    const auto saveBehind = [&](const std::string& bytes, auto between) {
        desktop.folder.write("a.rtf", bytes);
        document().ApriDocumento(path);
        between();
        type(u"x");
        document().save();
        return archived();
    };
    EXPECT_THAT(saveBehind("{\\rtf1 plain}", [] {}), IsEmpty());
    EXPECT_THAT(saveBehind("{\\rtf1\\trowd a\\cell\\row}", [] {}), ElementsAre("a.rtf: structure].rtf"));
    EXPECT_THAT(saveBehind("{\\rtf1 1}", [&] { desktop.folder.write("a.rtf", "theirs"); }),
                Contains("a.rtf: overwritten].txt"));
    EXPECT_THAT(saveBehind("{\\rtf1 2}", [&] { document().newDocument(); }), Contains("a.rtf: replaced].rtf"))
        << "the new text has the path of the old one";
    EXPECT_THAT(told(), HasSubstr("replaced"));
}

TEST_F(SafetyTest, FailedSave_IsArchivedAndReported_AlthoughTheFlagIsCleared) {
    type(u"x");
    desktop.folder.write("gone/a.rtf", "");
    desktop.dialogPort.answers = {platform::Answer::Yes};
    desktop.dialogPort.choices = {desktop.folder.text("gone/a.rtf")};
    std::filesystem::remove_all(desktop.folder.path() / "gone");
    document().save();
    EXPECT_EQ(document().TestoModificato, 0);
    EXPECT_THAT(told(), HasSubstr("could not be saved and is kept"));
    EXPECT_EQ(archived(), (Names{"a.rtf: save failed].rtf"}));
    desktop.loop.advance(1000);
    expectAfterStart(u"x");
}

TEST_F(SafetyTest, TextThatCrashesTheProgramTwice_IsNotRestoredAThirdTime) {
    type(u"deadly");
    expectAfterStart(u"deadly");
    expectAfterStart(u"deadly");
    expectAfterStart(u"");
    EXPECT_EQ(archived(), (Names{"&En97 1: crash].rtf"}));
    type(u"harmless");
    expectAfterStart(u"harmless"); // the next text is counted anew
}

TEST_F(SafetyTest, FileChangedByAnotherProgram_IsArchivedToo) {
    type(u"one");
    saveAs("a.rtf");
    type(u"two");
    desktop.folder.write("a.rtf", "{\\rtf1 another program's}");
    expectAfterStart(u"onetwo");
    EXPECT_EQ(desktop.form2->caption.get(), u"&En96 - a.rtf");
    EXPECT_EQ(desktop.folder.read("a.rtf"), "{\\rtf1 another program's}");
    EXPECT_EQ(archived(), (Names{"a.rtf: changed elsewhere].rtf"}));

    type(u"three");
    desktop.folder.write("a.rtf", desktop.text.source());
    expectAfterStart(u""); // the file holds all that the journal holds
}

TEST_F(SafetyTest, ArchiveThatFails_NeitherDropsNorOverwritesWhatItShouldHaveKept) {
    type(u"one");
    saveAs("a.rtf");
    type(u"two");
    desktop.folder.write("Files/Safety/Archive", "not a folder");
    quit(platform::Answer::No);
    expectAfterStart(u"onetwo");
    desktop.folder.write("a.rtf", "{\\rtf1 another program's}");
    desktop.loop.advance(1000);
    expectAfterStart(u"onetwo");
    EXPECT_EQ(document().FileEditor, u"") << "the next save asks for another name";
}

TEST_F(SafetyTest, EndOfSession_AsksNothing_AndSavesAll) {
    desktop.text.type(u"at the last moment");
    workstation().endSession();
    EXPECT_TRUE(desktop.systemPort.ended);
    EXPECT_TRUE(desktop.dialogPort.boxes.empty());
    expectAfterStart(u"at the last moment");
}
