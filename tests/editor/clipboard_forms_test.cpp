#include "editor/clipboard_forms.h"
#include "fakes/editor_bench.h"
#include "fakes/fake_clipboard.h"

struct ClipboardFormsTest : fakes::EditorBench {
    ClipboardFormsTest() {
        form.active = true;
        forms.Form_Load();
        text.setText(u"one two");
        select(0, 3);
    }
    base::Text afterTick(bool editorInFront) {
        form.active = editorInFront;
        desktop.loop.advance(200);
        return clipboard.text;
    }

    fakes::FakeClipboard clipboard;
    editor::ClipboardForms forms{form, clipboard};
};

TEST_F(ClipboardFormsTest, Copy_IsRtfWhileTheEditorIsActive_AndPlainTextOtherwise) {
    form.mnuCopia.Click();
    EXPECT_EQ(afterTick(true), u"{\\rtf1 one}");
    EXPECT_EQ(afterTick(false), u"one");
    clipboard.text = u"from elsewhere";
    EXPECT_EQ(afterTick(false), u"from elsewhere") << "replaced only when the active window changes";
    EXPECT_EQ(afterTick(true), u"{\\rtf1 one}") << "text copied elsewhere is overwritten";
    clipboard.held = true;
    EXPECT_EQ(afterTick(false), u"{\\rtf1 one}");
    clipboard.held = false;
    EXPECT_EQ(afterTick(false), u"{\\rtf1 one}") << "a locked clipboard counts as changed";
}

TEST_F(ClipboardFormsTest, BeforeTheFirstCopy_DeactivatingTheEditor_ClearsTheClipboard) {
    clipboard.text = u"from before";
    EXPECT_EQ(afterTick(false), u"");
}

TEST_F(ClipboardFormsTest, CutAndPaste_RoundTrip_PastePrefersRtf_AndIgnoresAnEmptyClipboard) {
    form.mnuTaglia.Click();
    EXPECT_EQ(text.Text(), u" two");
    form.mnuIncolla.Click();
    EXPECT_EQ(text.Text(), u"one two");
    clipboard.rtf = u"{\\rtf1 rich}";
    clipboard.text = u"poor";
    form.mnuIncolla.Click();
    clipboard.rtf.clear();
    form.mnuIncolla.Click();
    EXPECT_EQ(text.Text(), u"onerichpoor two");
    clipboard.text.clear();
    const std::size_t records = undoRedo.ListaUndo().size();
    form.mnuIncolla.Click();
    EXPECT_EQ(undoRedo.ListaUndo().size(), records);
}

TEST_F(ClipboardFormsTest, FocusLoss_PutsTheSelectionOnTheClipboardAsText) {
    form.mnuCopia.Click();
    select(4, 3);
    text.LostFocus();
    EXPECT_EQ(clipboard.text, u"two");
    EXPECT_EQ(afterTick(false), u"one");
}
