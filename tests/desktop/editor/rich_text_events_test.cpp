#include "rich_text_fixture.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QTest>

using tests::RichText;

namespace {

// Tells what reaches the program: "down 70/2", "up 116/0".
class RichTextEvents : public RichText {
protected:
    RichTextEvents() {
        rtb.KeyDown = [this](platform::KeyEvent& key) { told.push_back(name("down", key)); };
        rtb.KeyUp = [this](const platform::KeyEvent& key) { told.push_back(name("up", key)); };
        rtb.MouseDown = [this](int button) { told.push_back("mouse " + std::to_string(button)); };
        rtb.LostFocus = [this] { told.emplace_back("lost"); };
    }

    static std::string name(const char* what, const platform::KeyEvent& key) {
        return std::string(what) + ' ' + std::to_string(key.keyCode) + '/' + std::to_string(key.shift);
    }
    bool send(QEvent::Type type, int key, Qt::KeyboardModifiers held = {}, bool repeated = false) {
        QKeyEvent event(type, key, held, QString(), repeated);
        event.ignore();
        QApplication::sendEvent(&rtb, &event);
        return event.isAccepted();
    }
    void input(const QString& composed, const QString& committed) {
        QInputMethodEvent event(composed, {});
        event.setCommitString(committed);
        QApplication::sendEvent(&rtb, &event);
    }
    std::vector<std::string> told;
};

} // namespace

TEST_F(RichTextEvents, Keys_PressedAndReleased_AreToldByTheirNumbers) {
    struct Row {
        int key;
        Qt::KeyboardModifiers held;
        std::vector<std::string> told;
    };
    const Row rows[] = {
        {Qt::Key_F1, {}, {"down 112/0", "up 112/0"}},
        {Qt::Key_F12, {}, {"down 123/0", "up 123/0"}},
        {Qt::Key_F6, Qt::ControlModifier, {"down 117/2", "up 117/2"}},
        {Qt::Key_F4, Qt::ShiftModifier | Qt::KeypadModifier, {"down 115/1", "up 115/1"}},
        {Qt::Key_Z, Qt::ControlModifier | Qt::AltModifier, {"down 90/6", "up 90/6"}},
        {Qt::Key_A, Qt::ShiftModifier, {"down 65/1", "up 65/1"}},
        {Qt::Key_Return, {}, {"down 13/0", "up 13/0"}},
        {Qt::Key_Left, Qt::ControlModifier, {"down 37/2", "up 37/2"}},
        {Qt::Key_Dead_Acute, {}, {}},
    };
    for (const Row& row : rows) {
        told.clear();
        send(QEvent::KeyPress, row.key, row.held);
        send(QEvent::KeyRelease, row.key, row.held);
        EXPECT_EQ(told, row.told);
    }
}

TEST_F(RichTextEvents, AKeyHeld_RepeatsItsPressAndReleasesOnce) {
    send(QEvent::KeyPress, Qt::Key_F3);
    for (int i = 0; i < 2; ++i) {
        send(QEvent::KeyRelease, Qt::Key_F3, {}, true);
        send(QEvent::KeyPress, Qt::Key_F3, {}, true);
    }
    send(QEvent::KeyRelease, Qt::Key_F3);
    EXPECT_EQ(told, (std::vector<std::string>{"down 114/0", "down 114/0", "down 114/0", "up 114/0"}));
}

TEST_F(RichTextEvents, AKeyClearedAtItsPress_DoesNothingToTheText) {
    rtb.setText(u"ab");
    select(0, 1);
    changes = 0;
    rtb.KeyDown = [](platform::KeyEvent& key) { key.keyCode = key.shift = 0; };
    for (const int key : {Qt::Key_X, Qt::Key_V, Qt::Key_Z, Qt::Key_Y, Qt::Key_I, Qt::Key_M})
        EXPECT_TRUE(send(QEvent::KeyPress, key, Qt::ControlModifier));
    QTest::keyClick(&rtb, Qt::Key_Q);
    EXPECT_EQ(shown(), "[a]b");
    EXPECT_EQ(changes, 0);
}

TEST_F(RichTextEvents, Shortcuts_OfMenus_AreTakenAwayForTheKeysOfTheTextOnly) {
    for (const char letter : std::string_view("BCGIMOQUVWXYZ"))
        EXPECT_TRUE(send(QEvent::ShortcutOverride, letter, Qt::ControlModifier)) << letter;
    for (const char letter : std::string_view("AFHNPS"))
        EXPECT_FALSE(send(QEvent::ShortcutOverride, letter, Qt::ControlModifier)) << letter;
    for (int key = Qt::Key_F1; key <= Qt::Key_F12; ++key)
        EXPECT_TRUE(send(QEvent::ShortcutOverride, key));
    EXPECT_FALSE(send(QEvent::ShortcutOverride, Qt::Key_F, Qt::AltModifier));
}

TEST_F(RichTextEvents, Escape_InTheText_DoesNotReachTheWindow) {
    EXPECT_TRUE(send(QEvent::KeyPress, Qt::Key_Escape));
}

TEST_F(RichTextEvents, Change_AfterEachKey_ComesOnceWhenTheTextChanged) {
    struct Row {
        int key;
        Qt::KeyboardModifiers held;
        QString text;
        int start, length, expected;
        const char* after;
    };
    const Row rows[] = {
        {Qt::Key_X, {}, QStringLiteral("x"), 1, 0, 1, "ax|b\r\nc"},
        {Qt::Key_X, {}, QStringLiteral("x"), 0, 1, 1, "x|b\r\nc"},
        {Qt::Key_Return, {}, QStringLiteral("\r"), 1, 0, 1, "a\r\n|b\r\nc"},
        {Qt::Key_Return, Qt::ShiftModifier, QStringLiteral("\r"), 1, 0, 1, "a\u000B|b\r\nc"},
        {Qt::Key_Tab, {}, QStringLiteral("\t"), 1, 0, 1, "a\t|b\r\nc"},
        {Qt::Key_Backspace, {}, {}, 4, 0, 1, "ab|c"},
        {Qt::Key_Backspace, {}, {}, 0, 0, 0, "|ab\r\nc"},
        {Qt::Key_Delete, {}, {}, 2, 0, 1, "ab|c"},
        {Qt::Key_Delete, {}, {}, 5, 0, 0, "ab\r\nc|"},
        {Qt::Key_Delete, {}, {}, 0, 5, 1, "|"},
        {Qt::Key_Right, {}, {}, 1, 0, 0, "ab|\r\nc"},
        {Qt::Key_Right, Qt::ShiftModifier, {}, 2, 0, 0, "ab[\r\n]c"},
    };
    for (const Row& row : rows) {
        rtb.setText(u"ab\r\nc");
        select(row.start, row.length);
        changes = 0;
        QKeyEvent event(QEvent::KeyPress, row.key, row.held, row.text);
        QApplication::sendEvent(&rtb, &event);
        EXPECT_EQ(shown(), row.after);
        EXPECT_EQ(changes, row.expected) << row.after;
    }
}

TEST_F(RichTextEvents, Backspace_InFrontOfABullet_TakesItAwayWithoutAChange) {
    rtb.setText(u"a");
    rtb.setSelBullet(true);
    changes = 0;
    QTest::keyClick(&rtb, Qt::Key_Backspace);
    EXPECT_EQ(rtb.SelBullet(), platform::Setting::Off);
    EXPECT_EQ(changes, 0);
}

TEST_F(RichTextEvents, Composing_OfALetter_ChangesTheTextWhenItIsDone) {
    rtb.setText(u"ab");
    rtb.setSelStart(1);
    changes = 0;
    input(QStringLiteral("n"), {});
    input(QStringLiteral("ni"), {});
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(rtb.Text(), u"ab");
    input({}, QStringLiteral("\u4F60"));
    EXPECT_EQ(shown(), "a\u4F60|b");
    EXPECT_EQ(changes, 1);
    select(1, 1);
    input({}, QStringLiteral("\u00E9"));
    EXPECT_EQ(shown(), "a\u00E9|b");
    EXPECT_EQ(changes, 2);
    input(QStringLiteral("x"), {});
    input({}, {});
    EXPECT_EQ(changes, 2);
}

TEST_F(RichTextEvents, Offers_OfOtherPrograms_GoInWithTheFormatsOfRtfOnly) {
    struct Row {
        const char* type;
        QByteArray bytes;
        const char* after;
        bool bold;
    };
    const Row rows[] = {
        {"text/rtf", "{\\rtf1 {\\b x}}", "ax|b", true},
        {"application/rtf", "{\\rtf1 {\\b x}}", "ax|b", true},
        {"text/plain", "x\ny", "ax\r\ny|b", false},
        {"text/html", "<p><b>x</b> &amp; y</p>", "ax & y|b", false},
        {"text/uri-list", "file:///tmp/a.mp3", "a|b", false},
        {"image/png", "PNG", "a|b", false},
    };
    for (const Row& row : rows) {
        rtb.setText(u"ab");
        rtb.setSelStart(1);
        changes = 0;
        QMimeData data;
        data.setData(QString::fromLatin1(row.type), row.bytes);
        const bool accepted = rtb.canInsertFromMimeData(&data);
        if (accepted)
            rtb.insertFromMimeData(&data);
        EXPECT_EQ(shown(), row.after) << row.type;
        EXPECT_EQ(changes, accepted ? 1 : 0);
        EXPECT_EQ(rtb.SelBold() == platform::Setting::On, row.bold) << row.type;
    }
}

TEST_F(RichTextEvents, TheSelection_GivenToOthers_IsTextAndRtf) {
    rtb.setSelRTF(u"{\\rtf1 a{\\b b}\\par c}");
    select(1, 4);
    const std::unique_ptr<QMimeData> given(rtb.createMimeDataFromSelection());
    EXPECT_EQ(given->text(), QStringLiteral("b\r\nc"));
    rtb.setText(u"");
    rtb.insertFromMimeData(given.get());
    EXPECT_EQ(rtb.Text(), u"b\r\nc");
}

TEST_F(RichTextEvents, ADrop_OfItsOwnText_PutsItThereWithOneChange) {
    rtb.resize(300, 100);
    rtb.setText(u"one two");
    select(0, 4);
    changes = 0;
    const std::unique_ptr<QMimeData> data(rtb.createMimeDataFromSelection());
    QTextCursor behind(rtb.document());
    behind.movePosition(QTextCursor::End);
    const QPointF place = rtb.cursorRect(behind).center();
    QDragEnterEvent enter(place.toPoint(), Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(rtb.viewport(), &enter);
    QDropEvent drop(place, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(rtb.viewport(), &drop);
    EXPECT_EQ(rtb.Text(), u"one twoone ");
    EXPECT_EQ(changes, 1);
}

TEST_F(RichTextEvents, TheMouse_Pressed_IsToldWithItsButton) {
    rtb.resize(300, 100);
    for (const auto button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton})
        QTest::mousePress(rtb.viewport(), button);
    EXPECT_EQ(told, (std::vector<std::string>{"mouse 1", "mouse 2", "mouse 4"}));
}

TEST_F(RichTextEvents, TheKeyboard_GoneElsewhere_IsToldUnlessAMenuBorrowsIt) {
    for (const auto reason : {Qt::TabFocusReason, Qt::PopupFocusReason, Qt::MenuBarFocusReason}) {
        QFocusEvent event(QEvent::FocusOut, reason);
        QApplication::sendEvent(&rtb, &event);
    }
    EXPECT_EQ(told, std::vector<std::string>{"lost"});
}
