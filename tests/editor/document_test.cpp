#include "editor/editor_window.h"
#include "fakes/editor_bench.h"

using editor::Document;
using platform::Answer;

// The editor right after its start.
struct DocumentTest : fakes::EditorBench {
    DocumentTest() {
        document.Form_Load();
        form.visible = true;
    }
    std::string file(const std::string& name) { return desktop.folder.read(name); }
    base::Text path(const std::string& name) { return desktop.folder.text(name); }
    void newDocument(std::deque<Answer> answers = {}) {
        dialogs.answers = std::move(answers);
        document.newDocument();
    }
};

TEST_F(DocumentTest, New_AsksOnlyIfThereIsText_AndIncrementsTheNumber) {
    EXPECT_EQ(form.caption.get(), u"&En96 - &En97 1");
    text.type(u"x");
    text.setText(u"");
    newDocument();
    EXPECT_TRUE(dialogs.boxes.empty()) << "everything typed was deleted";
    EXPECT_EQ(form.caption.get(), u"&En96 - &En97 2");
    text.type(u"kept");
    newDocument({Answer::Cancel});
    EXPECT_EQ(text.Text(), u"kept");
    EXPECT_EQ(form.caption.get(), u"&En96 - &En97 2");
    newDocument({Answer::No});
    EXPECT_EQ(text.Text(), u"");
    EXPECT_EQ(document.TestoModificato, 0);
    text.type(u"lost");
    newDocument({Answer::Yes});
    EXPECT_EQ(dialogs.requests.size(), 1U);
    EXPECT_EQ(text.Text(), u"") << "a cancelled save does not stop New";
}

TEST_F(DocumentTest, Save_AfterNew_OverwritesTheFormerFile_AndAMissingFileChangesNothing) {
    desktop.folder.write("a.rtf", "first");
    document.ApriDocumento(path("a.rtf"));
    EXPECT_EQ(form.caption.get(), u"&En96 - a.rtf");
    EXPECT_EQ(document.TestoModificato, 0);
    newDocument();
    text.type(u"second");
    document.save();
    document.save();
    EXPECT_EQ(file("a.rtf"), "{\\rtf1 second}");
    document.ApriDocumento(path("gone.rtf"));
    EXPECT_EQ(dialogs.boxes.at(0).text, u"En98");
    EXPECT_EQ(text.Text(), u"second");
    EXPECT_EQ(form.mnuRecent1.caption.get(), path("a.rtf"));
    EXPECT_EQ(desktop.systemPort.beeps, 2) << "beeps at every save, changed or not";
    EXPECT_EQ(std::count(text.commands.begin(), text.commands.end(), "save"), 1);
    EXPECT_EQ(form.caption.get(), u"&En96 - &En97 2");
}

TEST_F(DocumentTest, Save_WithoutAPath_AsksForOneIfChanged_AndBeforeOverwriting) {
    document.save();
    EXPECT_TRUE(dialogs.requests.empty());
    desktop.folder.write("old.txt", "old");
    text.type(u"new");
    dialogs.answers = {Answer::No, Answer::Yes};
    for (const char* expected : {"old", "{\\rtf1 new}"}) { // always RTF, whatever the extension
        dialogs.choices = {path("old.txt")};
        document.save();
        EXPECT_EQ(file("old.txt"), expected);
        EXPECT_EQ(dialogs.requests.back().fileName, u"&En97 1");
        EXPECT_EQ(dialogs.boxes.back().text, u"En53\r\rEn54");
        EXPECT_EQ(dialogs.boxes.back().style, platform::BoxStyle::YesNoExclamation);
    }
    EXPECT_EQ(form.mnuRecent1.caption.get(), path("old.txt"));
}

TEST_F(DocumentTest, Dialogs_SuggestTheLastFormat) {
    for (const auto& [newest, extension, entry] :
         {std::tuple{u"/a/b.TXT", u"txt", 122}, {u"/a/b.doc", u"rtf", 121}, {u"t", u"rtf", 121}}) {
        form.mnuRecent1.caption = newest;
        document.openDocument();
        EXPECT_EQ(dialogs.requests.back().defaultExtension, extension);
        EXPECT_TRUE(dialogs.requests.back().filter.starts_with(Lingua(entry)));
    }
}

TEST_F(DocumentTest, FormatsAlone_AreSavedAndAskedFor_WithoutAnUndoRecord) {
    desktop.folder.write("a.rtf", "words");
    document.ApriDocumento(path("a.rtf"));
    fakes::select(text, 0, 3);
    const std::size_t records = undoRedo.ListaUndo().size();
    text.setSelBold(true);
    EXPECT_EQ(undoRedo.ListaUndo().size(), records);
    dialogs.answers = {Answer::Yes};
    EXPECT_EQ(document.askAtExit(), Document::ExitAnswer::Go);
    EXPECT_EQ(file("a.rtf"), "{\\rtf1 words}");
    EXPECT_EQ(document.TestoModificato, 0);
}

TEST_F(DocumentTest, DocumentTooLarge_IsNotTheTargetOfTheNextSave) {
    desktop.folder.write("a.rtf", "small");
    desktop.folder.write("large.rtf", "too large");
    document.ApriDocumento(path("a.rtf"));
    text.largestFile = 5;
    document.ApriDocumento(path("large.rtf"));
    text.type(u"X");
    document.save();
    EXPECT_EQ(file("a.rtf"), "{\\rtf1 Xsmall}");
    EXPECT_EQ(file("large.rtf"), "too large");
    EXPECT_EQ(form.mnuRecent1.caption.get(), path("a.rtf"));
}

TEST_F(DocumentTest, Exit_AsksAboutVisibleUnsavedText) {
    using Exit = Document::ExitAnswer;
    const std::tuple<Answer, std::deque<base::Text>, Exit> rows[] = {
        {Answer::Cancel, {}, Exit::Cancelled},
        {Answer::No, {}, Exit::Go},
        {Answer::Yes, {}, Exit::SaveCancelled},
        {Answer::Yes, {path("saved.rtf")}, Exit::Go}};
    for (const auto& [answer, choices, expected] : rows) {
        document.FileEditor.clear();
        text.setText(u"words");
        dialogs.answers = {answer};
        dialogs.choices = choices;
        EXPECT_EQ(document.askAtExit(), expected);
        EXPECT_EQ(dialogs.boxes.back().text, u"En75 &En97 1?");
    }
    EXPECT_EQ(file("saved.rtf"), "{\\rtf1 words}");
    text.setText(u"words");
    form.visible = false;
    EXPECT_EQ(document.askAtExit(), Exit::Go) << "text in a hidden editor is discarded";
    EXPECT_EQ(dialogs.boxes.size(), 4U);
}

TEST_F(DocumentTest, Window_OpensBelowThePlayer_FitsTheScreen_AndOnlyHidesOnClose) {
    controls::Window player("Form1", {750, 750, 5220, 3000});
    controls::Screen screen;
    screen.width = 9000;
    screen.height = 6000;
    controls::MenuItem command("mnuMostraNascondi");
    editor::EditorWindow window(form, player, screen, command);
    window.Form_Load();
    EXPECT_THAT((std::vector<double>{form.left, form.top, form.width, form.height}),
                testing::ElementsAre(750, 3750, 8250, 2250));
    EXPECT_TRUE(form.Unload());
    EXPECT_FALSE(form.visible);
    EXPECT_EQ(command.caption.get(), Lingua(86));
}
