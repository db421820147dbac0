#include "editor/toolbar.h"
#include "fakes/editor_bench.h"

// That the real text control reports its changes exactly is tested with the control.
struct UndoRedoTest : fakes::EditorBench {
    UndoRedoTest() {
        toolbar.Form_Load();
        typing.Form_Load();
    }
    std::string undo() { return form.Label2[editor::undoButton].Click(), shown(); }
    std::string redo() { return form.Label2[editor::redoButton].Click(), shown(); }

    editor::Toolbar toolbar{form, document, desktop.systemPort, dialogs};
};

TEST_F(UndoRedoTest, Undo_WithNothingToUndo_OnlyMarksTheTextAsChanged) {
    document.TestoModificato = 0;
    EXPECT_EQ(undo(), "|");
    EXPECT_EQ(redo(), "|");
    EXPECT_EQ(document.TestoModificato, 1);
    EXPECT_EQ(undoRedo.ListaUndo().size(), 1U) << "the record of the empty text";
}

TEST_F(UndoRedoTest, TypedCharacters_AreUndoneOneByOne_AndRedoneUntilTheNextOne) {
    for (const base::TextView letter : {u"a", u"b", u"c"})
        text.type(letter);
    for (const std::string expected : {"ab|", "a|", "|", "|"})
        EXPECT_EQ(undo(), expected);
    for (const std::string expected : {"a|", "ab|"})
        EXPECT_EQ(redo(), expected);
    text.setSelBold(true); // not recorded
    text.type(u"x");
    EXPECT_EQ(redo(), "abx|");
    EXPECT_EQ(undo(), "ab|");
}

TEST_F(UndoRedoTest, RestoredText_IsSelected_UnlessASingleCharacterOrLineEnd) {
    const std::tuple<std::int32_t, std::int32_t, base::TextView, std::string, std::string, std::string>
        rows[] = {
            {2, 3, u"", "on|wo/3", "on[e t]wo/3", "on|wo/3"},
            {1, 1, u"", "o|e two/3", "on|e two/3", "o|e two/3"},
            {7, 2, u"", "one two|3", "one two/|3", "one two|3"},
            {3, 0, u"xyz", "onexyz| two/3", "one| two/3", "one[xyz] two/3"},
            // Known limits of the design: a replacement of equal length is no difference, otherwise only the
            // difference in length is undone.
            {0, 3, u"ten", "ten| two/3", "ten| two/3", "ten| two/3"},
            {0, 3, u"eleven", "eleven| two/3", "ele| two/3", "ele[ven] two/3"},
            {0, 3, u"x", "x| two/3", "x[ne] two/3", "x| two/3"},
        };
    for (const auto& [start, length, by, after, undone, redone] : rows) {
        text.setText(u"one two\r\n3");
        select(start, length);
        text.setSelText(by);
        EXPECT_EQ(shown(), after);
        EXPECT_EQ(undo(), undone) << after;
        EXPECT_EQ(redo(), redone) << after;
    }
}

TEST_F(UndoRedoTest, Undo_AfterNew_RestoresTheFormerText_Selected) {
    text.type(u"kept");
    dialogs.answers = {platform::Answer::No};
    document.newDocument();
    EXPECT_EQ(undo(), "[kept]");
    EXPECT_EQ(undo(), "|");
    text.setText(u"o"); // the caret stays in front: a redo would begin before the text
    EXPECT_EQ(undo(), "|");
    EXPECT_EQ(redo(), "|");
}

TEST_F(UndoRedoTest, Change_StartsTheTypingTimer_OnlyIfTheOptionIsOn) {
    text.type(u"a");
    EXPECT_EQ(form1.Timer6.interval(), 0);
    form1.mnuNoPlayOnWrite.checked = true;
    undo();
    EXPECT_EQ(form1.Timer6.interval(), 1300) << "an undo changes the text too";
}
