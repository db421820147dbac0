#include "editor/toolbar.h"
#include "fakes/editor_bench.h"

// What the text control really does under random edits is tested with the control.
class UndoRedoTest : public fakes::EditorBench {
protected:
    UndoRedoTest() {
        toolbar.Form_Load();
        typing.Form_Load();
    }
    // The text with its selection: "a[b]c", "a|bc".
    std::string shown() {
        base::Text all = text.Text();
        const auto start = static_cast<std::size_t>(text.SelStart());
        const auto length = static_cast<std::size_t>(text.SelLength());
        all.insert(start + length, length > 0 ? u"]" : u"|");
        return base::toUtf8(length > 0 ? all.insert(start, u"[") : all);
    }
    std::string undo() { return form.Label2[editor::undoButton].Click(), shown(); }
    std::string redo() { return form.Label2[editor::redoButton].Click(), shown(); }

    editor::Toolbar toolbar{form, document, desktop.systemPort, dialogs};
};

TEST_F(UndoRedoTest, Undo_OfNothing_OnlyMarksTheTextAsChanged) {
    document.TestoModificato = 0;
    EXPECT_EQ(undo(), "|");
    EXPECT_EQ(redo(), "|");
    EXPECT_EQ(document.TestoModificato, 1);
    EXPECT_EQ(undoRedo.ListaUndo().size(), 1U) << "the record of the empty text";
}

TEST_F(UndoRedoTest, Letters_GoOneByOne_AndComeBackUntilOneIsTyped) {
    for (const base::TextView letter : {u"a", u"b", u"c"})
        text.type(letter);
    for (const std::string expected : {"ab|", "a|", "|", "|"})
        EXPECT_EQ(undo(), expected);
    for (const std::string expected : {"a|", "ab|"})
        EXPECT_EQ(redo(), expected);
    text.setSelBold(true); // makes no record
    text.type(u"x");
    EXPECT_EQ(redo(), "abx|");
    EXPECT_EQ(undo(), "ab|");
}

TEST_F(UndoRedoTest, ARun_PutBack_IsSelected_ButASingleLetterOrLineEndIsNot) {
    struct Row {
        std::int32_t start, length;
        base::TextView by;
        std::string after, undone, redone;
    };
    const Row rows[] = {
        {2, 3, u"", "on|wo\r\n3", "on[e t]wo\r\n3", "on|wo\r\n3"},
        {1, 1, u"", "o|e two\r\n3", "on|e two\r\n3", "o|e two\r\n3"},
        {7, 2, u"", "one two|3", "one two\r\n|3", "one two|3"},
        {3, 0, u"xyz", "onexyz| two\r\n3", "one| two\r\n3", "one[xyz] two\r\n3"},
        // The limits of the design: an equal length is no difference, another one only as long as it is.
        {0, 3, u"ten", "ten| two\r\n3", "ten| two\r\n3", "ten| two\r\n3"},
        {0, 3, u"eleven", "eleven| two\r\n3", "ele| two\r\n3", "ele[ven] two\r\n3"},
        {0, 3, u"x", "x| two\r\n3", "x[ne] two\r\n3", "x| two\r\n3"},
    };
    for (const Row& row : rows) {
        text.setText(u"one two\r\n3");
        text.setSelStart(row.start);
        text.setSelLength(row.length);
        text.setSelText(row.by);
        EXPECT_EQ(shown(), row.after);
        EXPECT_EQ(undo(), row.undone) << row.after;
        EXPECT_EQ(redo(), row.redone) << row.after;
    }
}

TEST_F(UndoRedoTest, Undo_AfterNew_BringsTheFormerTextBack_Selected) {
    text.type(u"kept");
    dialogs.answers = {platform::Answer::No};
    document.newDocument();
    EXPECT_EQ(undo(), "[kept]");
    EXPECT_EQ(undo(), "|");
}

TEST_F(UndoRedoTest, AChange_HoldsTheTypingWatch_OnlyWhenItIsAskedFor) {
    text.type(u"a");
    EXPECT_EQ(form1.Timer6.interval(), 0);
    form1.mnuNoPlayOnWrite.checked = true;
    undo();
    EXPECT_EQ(form1.Timer6.interval(), 1300) << "an undo changes the text too";
}
