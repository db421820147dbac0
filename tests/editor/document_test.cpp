#include "editor/editor_window.h"
#include "fakes/editor_bench.h"

using editor::Document;
using platform::Answer;

// The editor fresh from its start.
class DocumentTest : public fakes::EditorBench {
protected:
    DocumentTest() {
        document.Form_Load();
        form.visible = true;
    }
    std::string file(const std::string& name) { return desktop.folder.read(name); }
    base::Text path(const std::string& name) { return desktop.folder.text(name); }
    void saveAs(const std::string& name) {
        dialogs.choices = {path(name)};
        document.mnuSalvaConNome_Click();
    }
};

TEST_F(DocumentTest, New_AsksOnlyAboutAText_AndCountsOn) {
    EXPECT_EQ(form.caption.get(), u"&En96 - &En97 1");
    text.type(u"x");
    text.setText(u"");
    document.newDocument();
    EXPECT_TRUE(dialogs.boxes.empty()) << "typed and wholly deleted";
    EXPECT_EQ(form.caption.get(), u"&En96 - &En97 2");
    text.type(u"kept");
    dialogs.answers = {Answer::Cancel};
    document.newDocument();
    EXPECT_EQ(text.Text(), u"kept");
    EXPECT_EQ(document.NumeroDocumento, 2);
    dialogs.answers = {Answer::No};
    document.newDocument();
    EXPECT_EQ(text.Text(), u"");
    EXPECT_EQ(document.TestoModificato, 0);
    document.NumeroDocumento = 32767;
    document.newDocument();
    EXPECT_EQ(document.NumeroDocumento, 32767);
}

TEST_F(DocumentTest, New_AfterAYesWithACancelledSave_GoesOnAllTheSame) {
    text.type(u"lost");
    dialogs.answers = {Answer::Yes};
    document.newDocument();
    EXPECT_EQ(dialogs.requests.size(), 1U);
    EXPECT_EQ(text.Text(), u"");
}

TEST_F(DocumentTest, Save_AfterNew_WritesOverTheFormerFile) {
    desktop.folder.write("a.rtf", "first");
    document.ApriDocumento(path("a.rtf"));
    EXPECT_EQ(form.caption.get(), u"&En96 - a.rtf");
    EXPECT_EQ(document.TestoModificato, 0);
    document.newDocument();
    text.type(u"second");
    document.save();
    EXPECT_EQ(file("a.rtf"), "{\\rtf1 second}");
    EXPECT_EQ(desktop.systemPort.beeps, 1);
    document.save();
    EXPECT_EQ(desktop.systemPort.beeps, 2) << "a beep at every save, changed or not";
    EXPECT_EQ(std::count(text.commands.begin(), text.commands.end(), "save"), 1);
    EXPECT_EQ(form.caption.get(), u"&En96 - &En97 2");
}

TEST_F(DocumentTest, Save_WithoutAPath_AsksForOne_OnlyWhenChanged) {
    document.TestoModificato = 0;
    document.save();
    EXPECT_TRUE(dialogs.requests.empty());
    text.type(u"x");
    dialogs.choices = {path("note.txt")};
    document.save();
    EXPECT_EQ(dialogs.requests.at(0).fileName, u"&En97 1");
    EXPECT_EQ(file("note.txt").find("{\\rtf"), 0U) << "always RTF, whatever the name";
    EXPECT_EQ(form.mnuRecent1.caption.get(), path("note.txt"));
    EXPECT_EQ(desktop.systemPort.beeps, 0);
}

TEST_F(DocumentTest, SaveAs_OverAFile_AsksInTwoLines) {
    desktop.folder.write("old.rtf", "old");
    text.type(u"new");
    dialogs.answers = {Answer::No, Answer::Yes};
    saveAs("old.rtf");
    EXPECT_EQ(file("old.rtf"), "old");
    EXPECT_EQ(dialogs.boxes.at(0).text, u"En53\r\rEn54");
    EXPECT_EQ(dialogs.boxes.at(0).style, platform::BoxStyle::YesNoExclamation);
    EXPECT_EQ(document.FileEditor, u"");
    saveAs("old.rtf");
    EXPECT_EQ(file("old.rtf"), "{\\rtf1 new}");
}

TEST_F(DocumentTest, Dialogs_ProposeTheFormatUsedLast) {
    const std::pair<base::Text, base::Text> rows[] = {{u"mnuRecent1", u"rtf"},
                                                      {u"/a/b.TXT", u"txt"},
                                                      {u"/a/b.rtf", u"rtf"},
                                                      {u"/a/b.doc", u"rtf"},
                                                      {u"t", u"rtf"}};
    for (const auto& [newest, extension] : rows) {
        form.mnuRecent1.caption = newest;
        document.openDocument();
        const auto& request = dialogs.requests.back();
        EXPECT_EQ(request.defaultExtension, extension) << base::toUtf8(newest);
        EXPECT_EQ(request.filter.find(Lingua(extension == u"txt" ? 122 : 121)), 0U);
    }
}

TEST_F(DocumentTest, Open_OfAMissingFile_IsToldAndChangesNothing) {
    text.type(u"here");
    document.ApriDocumento(path("gone.rtf"));
    EXPECT_EQ(dialogs.boxes.at(0).text, u"En98");
    EXPECT_EQ(text.Text(), u"here");
    EXPECT_EQ(document.FileEditor, u"");
    EXPECT_EQ(form.mnuRecent1.caption.get(), u"mnuRecent1");
}

TEST_F(DocumentTest, Exit_AsksAboutAVisibleUnsavedText) {
    struct Row {
        std::deque<Answer> answers;
        std::deque<base::Text> choices;
        Document::ExitAnswer expected;
    };
    const Row rows[] = {{{Answer::Cancel}, {}, Document::ExitAnswer::Cancelled},
                        {{Answer::No}, {}, Document::ExitAnswer::Go},
                        {{Answer::Yes}, {}, Document::ExitAnswer::SaveCancelled},
                        {{Answer::Yes}, {path("saved.rtf")}, Document::ExitAnswer::Go}};
    for (const Row& row : rows) {
        document.FileEditor.clear();
        text.setText(u"words");
        dialogs.answers = row.answers;
        dialogs.choices = row.choices;
        EXPECT_EQ(document.askAtExit(), row.expected);
        EXPECT_EQ(dialogs.boxes.back().text, u"En75 &En97 1?");
        EXPECT_EQ(dialogs.boxes.back().title, u"");
    }
    const std::size_t asked = dialogs.boxes.size();
    text.setText(u"words");
    form.visible = false;
    EXPECT_EQ(document.askAtExit(), Document::ExitAnswer::Go) << "text in a hidden editor is dropped";
    EXPECT_EQ(dialogs.boxes.size(), asked);
}

TEST_F(DocumentTest, Window_OpensBelowThePlayer_FitsTheScreen_AndOnlyHidesOnClose) {
    controls::Window player("Form1", {750, 750, 5220, 3000});
    controls::Screen screen;
    screen.width = 9000;
    screen.height = 6000;
    controls::MenuItem command("mnuMostraNascondi");
    editor::EditorWindow window(form, player, screen, command);
    window.Form_Load();
    EXPECT_EQ(form.left, 750);
    EXPECT_EQ(form.top, 3750);
    EXPECT_EQ(form.width, 8250);
    EXPECT_EQ(form.height, 2250);
    window.Form_Resize();
    EXPECT_EQ(form.Label1.width, 7830);
    EXPECT_EQ(form.RTBPlace.width, 7320);
    EXPECT_EQ(form.RTBPlace.height, form.Label1.height - 380);
    form.height = 300;
    const double kept = form.Label1.height;
    window.Form_Resize();
    EXPECT_EQ(form.Label1.height, kept) << "a size below nothing is refused";
    EXPECT_TRUE(form.Unload());
    EXPECT_FALSE(form.visible);
    EXPECT_EQ(command.caption.get(), Lingua(86));
    EXPECT_FALSE(form.mnuStrumenti.visible);
}
