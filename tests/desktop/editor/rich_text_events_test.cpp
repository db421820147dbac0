#include "rich_text_fixture.h"

#include <QAction>
#include <QDragEnterEvent>
#include <QInputMethodEvent>

using tests::RichText;

namespace {

// Logs what reaches the program: "down 70/2", "up 116/0".
class RichTextEvents : public RichText {
protected:
    RichTextEvents() {
        rtb.TakesKey = [](const platform::KeyEvent& key) {
            return key.keyCode >= 112 ||
                   (key.shift == 2 &&
                    std::string_view("COQV").find(static_cast<char>(key.keyCode)) != std::string_view::npos);
        };
        rtb.KeyDown = [this](platform::KeyEvent& key) { told.push_back(name("down", key)); };
        rtb.KeyUp = [this](const platform::KeyEvent& key) { told.push_back(name("up", key)); };
        rtb.EditKey = [this](platform::EditCommand command) {
            told.push_back("edit " + std::to_string(static_cast<int>(command)));
        };
        rtb.MouseDown = [this](int button) { told.push_back("mouse " + std::to_string(button)); };
        rtb.LostFocus = [this] { told.emplace_back("lost"); };
    }

    static std::string name(const char* what, const platform::KeyEvent& key) {
        return std::string(what) + ' ' + std::to_string(key.keyCode) + '/' + std::to_string(key.shift);
    }
    bool send(QEvent::Type type, int key, Qt::KeyboardModifiers held = {}, bool repeated = false,
              const QString& text = {}, quint32 place = 0) {
        QKeyEvent event(type, key, held, place, 0, 0, text, repeated);
        event.ignore();
        QApplication::sendEvent(&rtb, &event);
        return event.isAccepted();
    }
    void loseKeyboard(Qt::FocusReason reason) {
        QFocusEvent event(QEvent::FocusOut, reason);
        QApplication::sendEvent(&rtb, &event);
    }
    void input(const QString& composed, const QString& committed) {
        QInputMethodEvent event(composed, {});
        event.setCommitString(committed);
        QApplication::sendEvent(&rtb, &event);
    }
    // Drops after the last character.
    void drop(const QMimeData& data) {
        QTextCursor end(rtb.document());
        end.movePosition(QTextCursor::End);
        const QPointF place = rtb.cursorRect(end).center();
        QDragEnterEvent enter(place.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(rtb.viewport(), &enter);
        if (!enter.isAccepted())
            return;
        QDropEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(rtb.viewport(), &event);
    }
    // The log since the last call.
    std::vector<std::string> heard() { return std::exchange(told, {}); }

    using Told = std::vector<std::string>;
    Told told;
};

} // namespace

TEST_F(RichTextEvents, KeyPressAndRelease_AreReportedWithTheirCodes) {
    const struct {
        int key;
        Qt::KeyboardModifiers held;
        Told told;
    } rows[] = {
        {Qt::Key_F4, Qt::ShiftModifier | Qt::KeypadModifier, {"down 115/1", "up 115/1"}},
        {Qt::Key_Z, Qt::ControlModifier | Qt::AltModifier, {"down 90/6", "up 90/6"}},
        {Qt::Key_Return, {}, {"down 13/0", "up 13/0"}},
        {Qt::Key_Dead_Acute, {}, {}},
    };
    for (const auto& row : rows) {
        send(QEvent::KeyPress, row.key, row.held);
        send(QEvent::KeyRelease, row.key, row.held);
        EXPECT_EQ(heard(), row.told);
    }
}

TEST_F(RichTextEvents, KeyRelease_IsReportedOnce_AndOnlyAfterItsPress) {
    // A held key repeats its press; the X server also repeats its release.
    send(QEvent::KeyPress, Qt::Key_F3);
    send(QEvent::KeyRelease, Qt::Key_F3, {}, true);
    send(QEvent::KeyPress, Qt::Key_F3, {}, true);
    send(QEvent::KeyRelease, Qt::Key_F3);
    EXPECT_EQ(heard(), (Told{"down 114/0", "down 114/0", "up 114/0"}));
    // A player key that returned the focus before it was released.
    send(QEvent::KeyRelease, Qt::Key_F5);
    send(QEvent::KeyPress, Qt::Key_F5, {}, true);
    send(QEvent::KeyRelease, Qt::Key_F5);
    EXPECT_EQ(heard(), Told{"down 116/0"});
    // A key pressed here, whose press went to a menu.
    send(QEvent::ShortcutOverride, Qt::Key_S, Qt::ControlModifier);
    send(QEvent::KeyRelease, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(heard(), Told{"up 83/2"});
    // A key pressed here, after which another control got the focus.
    send(QEvent::KeyPress, Qt::Key_F6);
    loseKeyboard(Qt::MouseFocusReason);
    send(QEvent::KeyRelease, Qt::Key_F6);
    EXPECT_EQ(heard(), (Told{"down 117/0", "lost"}));
}

TEST_F(RichTextEvents, HeldKey_RepeatsInTheText_OnlyIfPressedThere) {
    const auto press = [&](const QString& letter, bool repeated) {
        send(QEvent::KeyPress, Qt::Key_X, {}, repeated, letter);
    };
    press(QStringLiteral("a"), true);
    EXPECT_EQ(shown(), "|") << "pressed in a dialog that it closed";
    press(QStringLiteral("b"), false);
    loseKeyboard(Qt::PopupFocusReason);
    press(QStringLiteral("c"), true);
    EXPECT_EQ(shown(), "bc|");
    loseKeyboard(Qt::OtherFocusReason);
    press(QStringLiteral("d"), true);
    EXPECT_EQ(shown(), "bc|");
    input({}, QStringLiteral("e"));
    press(QStringLiteral("f"), true);
    EXPECT_EQ(shown(), "bcef|") << "the press went to an input method";
}

TEST_F(RichTextEvents, PlatformEditShortcuts_AreReported_AndChangeNothingThemselves) {
    const struct {
        int key;
        Qt::KeyboardModifiers held;
        platform::EditCommand command;
    } rows[] = {
        {Qt::Key_Z, Qt::ControlModifier, platform::EditCommand::Undo},
        {Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, platform::EditCommand::Redo},
        {Qt::Key_Delete, Qt::ShiftModifier, platform::EditCommand::Cut},
        {Qt::Key_Insert, Qt::ControlModifier, platform::EditCommand::Copy},
        {Qt::Key_Insert, Qt::ShiftModifier, platform::EditCommand::Paste},
    };
    rtb.setText(u"ab");
    select(0, 1);
    changes = 0;
    for (const auto& row : rows) {
        EXPECT_TRUE(send(QEvent::KeyPress, row.key, row.held));
        EXPECT_EQ(heard().back(), "edit " + std::to_string(static_cast<int>(row.command)));
        EXPECT_EQ(changes, 0);
    }
}

TEST_F(RichTextEvents, NonLatinLetter_WithControl_IsTheLatinLetterOfItsKey) {
    QAction selectAll(&rtb);
    selectAll.setShortcut(Qt::CTRL | Qt::Key_A);
    QObject::connect(&selectAll, &QAction::triggered, &rtb, [this] { told.emplace_back("menu"); });
    const struct {
        int key;
        quint32 place;
        bool ofText;
        Told told;
    } rows[] = {
        {0x421, 54, true, {"down 67/2"}}, // Cyrillic
        {0x424, 38, false, {"down 65/2", "menu"}},
        {0x3A9, 55, true, {"down 86/2"}}, // Greek
        {0x416, 47, false, {}},           // not a letter key
        {Qt::Key_Comma, 25, false, {}},   // Latin layout
        {Qt::Key_Odiaeresis, 38, false, {}},
        {Qt::Key_Q, 38, true, {"down 81/2"}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(send(QEvent::ShortcutOverride, row.key, Qt::ControlModifier, false, {}, row.place),
                  row.ofText)
            << row.key;
        send(QEvent::KeyPress, row.key, Qt::ControlModifier, false, {}, row.place);
        EXPECT_EQ(heard(), row.told) << row.key;
    }
}

TEST_F(RichTextEvents, MenuShortcuts_AreOverridden_OnlyByKeysOfTheText) {
    EXPECT_TRUE(send(QEvent::ShortcutOverride, Qt::Key_O, Qt::ControlModifier));
    EXPECT_TRUE(send(QEvent::ShortcutOverride, Qt::Key_F12));
    EXPECT_FALSE(send(QEvent::ShortcutOverride, Qt::Key_S, Qt::ControlModifier));
    EXPECT_FALSE(send(QEvent::ShortcutOverride, Qt::Key_F, Qt::AltModifier));
}

TEST_F(RichTextEvents, Change_IsReportedOncePerKey_IfTheTextChanged) {
    const struct {
        int key;
        Qt::KeyboardModifiers held;
        QString text;
        int start, length, expected;
        const char* after;
    } rows[] = {
        {Qt::Key_X, {}, QStringLiteral("x"), 1, 0, 1, "ax|b/c"},
        {Qt::Key_X, {}, QStringLiteral("x"), 0, 1, 1, "x|b/c"},
        {Qt::Key_Return, {}, QStringLiteral("\r"), 1, 0, 1, "a/|b/c"},
        {Qt::Key_Return, Qt::ShiftModifier, QStringLiteral("\r"), 1, 0, 1, "a\u000B|b/c"},
        {Qt::Key_Backspace, {}, {}, 4, 0, 1, "ab|c"},
        {Qt::Key_Backspace, {}, {}, 0, 0, 0, "|ab/c"},
        {Qt::Key_Delete, {}, {}, 0, 5, 1, "|"},
        {Qt::Key_Right, Qt::ShiftModifier, {}, 2, 0, 0, "ab[/]c"},
        {Qt::Key_Tab, {}, QStringLiteral("\t"), 1, 0, 1, "a\t|b/c"},
        {Qt::Key_End, Qt::ControlModifier, {}, 1, 0, 0, "ab/c|"},
        {Qt::Key_Backspace, Qt::ControlModifier, {}, 2, 0, 1, "|/c"},
        // Keys that Qt would handle
        {Qt::Key_K, Qt::ControlModifier, QStringLiteral("\v"), 1, 0, 0, "a|b/c"},
        {Qt::Key_D, Qt::ControlModifier, QStringLiteral("\4"), 1, 0, 0, "a|b/c"},
        {Qt::Key_I, Qt::ControlModifier | Qt::AltModifier, QStringLiteral("\t"), 1, 0, 0, "a|b/c"},
        {Qt::Key_J, Qt::AltModifier, QStringLiteral("j"), 1, 0, 0, "a|b/c"},
        {Qt::Key_Backtab, Qt::ShiftModifier, {}, 1, 0, 0, "a|b/c"},
        {Qt::Key_Escape, {}, QStringLiteral("\33"), 1, 0, 0, "a|b/c"},
    };
    for (const auto& row : rows) {
        rtb.setText(u"ab\r\nc");
        select(row.start, row.length);
        changes = 0;
        EXPECT_TRUE(send(QEvent::KeyPress, row.key, row.held, false, row.text))
            << "otherwise the window would handle it: " << row.key;
        EXPECT_EQ(shown(), row.after);
        EXPECT_EQ(changes, row.expected) << row.after;
        EXPECT_TRUE(changes == 0 || watch.seen == row.after) << "reported with the old text: " << watch.seen;
    }
}

TEST_F(RichTextEvents, Backspace_BeforeABullet_RemovesIt_WithoutATextChange) {
    rtb.setText(u"a");
    rtb.setSelBullet(true);
    changes = 0;
    QTest::keyClick(&rtb, Qt::Key_Backspace);
    EXPECT_EQ(rtb.SelBullet(), platform::Setting::Off);
    EXPECT_EQ(changes, 0);
}

TEST_F(RichTextEvents, ComposedInput_ChangesTheText_WhenCommitted) {
    rtb.setText(u"ab");
    rtb.setSelStart(1);
    changes = 0;
    input(QStringLiteral("ni"), {});
    EXPECT_EQ(rtb.Text(), u"ab");
    EXPECT_EQ(changes, 0);
    input({}, QStringLiteral("\u4F60"));
    EXPECT_EQ(shown(), "a\u4F60|b");
    EXPECT_EQ(changes, 1);
    select(1, 1);
    input({}, QStringLiteral("\u00E9"));
    EXPECT_EQ(shown(), "a\u00E9|b");
    EXPECT_EQ(changes, 2) << "one character replaced by another";
    watch.formats = 0;
    input(QStringLiteral("x"), {});
    input({}, {});
    EXPECT_EQ(watch.formats, 0);
    EXPECT_EQ(changes, 2) << "cancelled";
}

TEST_F(RichTextEvents, Drop_IsOneChange_WithFormatsFromRtfOnly) {
    rtb.resize(300, 100);
    rtb.setSelRTF(u"{\\rtf1 {\\b x}y}");
    select(0, 1);
    const std::unique_ptr<QMimeData> own(rtb.createMimeDataFromSelection());
    EXPECT_EQ(own->text(), QStringLiteral("x"));
    const struct {
        const char* type;
        QByteArray bytes;
        base::TextView after;
        bool bold;
    } rows[] = {
        {"text/rtf", own->data(QStringLiteral("text/rtf")), u"abx", true},
        {"text/plain", "x\ny", u"abx\r\ny", false},
        {"text/html", "<p><b>x</b> &amp; y</p>", u"abx & y", false},
        {"text/uri-list", "file:///tmp/a.mp3", u"ab", false},
        {"image/png", "PNG", u"ab", false},
    };
    for (const auto& row : rows) {
        rtb.setText(u"ab");
        changes = 0;
        QMimeData data;
        data.setData(QString::fromLatin1(row.type), row.bytes);
        drop(data);
        EXPECT_EQ(rtb.Text(), row.after) << row.type;
        EXPECT_EQ(changes, row.after == u"ab" ? 0 : 1) << row.type;
        select(2, 1);
        EXPECT_EQ(rtb.SelBold() == platform::Setting::On, row.bold) << row.type;
    }
}

TEST_F(RichTextEvents, DragWithinTheText_IsARemovalAndAnInsertion) {
    const struct {
        int start, length;
        Told changes;
    } rows[] = {
        {0, 1, {"|b/cd", "b/cda|"}}, {1, 4, {"a|d", "adb/c|"}}, {4, 2, {}}, // onto itself
    };
    for (const auto& row : rows) {
        rtb.setText(u"ab\r\ncd");
        select(row.start, row.length);
        rtb.Change = [&] { told.push_back(shown()); };
        QTextCursor end(rtb.document());
        end.movePosition(QTextCursor::End);
        const std::unique_ptr<QMimeData> dragged(rtb.createMimeDataFromSelection());
        rtb.moveSelection(*dragged, end);
        EXPECT_EQ(heard(), row.changes);
        rtb.Change = [] {};
    }
}

TEST_F(RichTextEvents, MousePress_IsReportedWithItsButton_AndFocusLossOnce) {
    for (const auto button : {Qt::LeftButton, Qt::RightButton})
        QTest::mouseClick(rtb.viewport(), button);
    EXPECT_EQ(heard(), (Told{"mouse 1", "mouse 2"}));
    // A menu or another program only borrows the focus.
    for (const auto reason :
         {Qt::TabFocusReason, Qt::PopupFocusReason, Qt::MenuBarFocusReason, Qt::ActiveWindowFocusReason})
        loseKeyboard(reason);
    EXPECT_EQ(heard(), Told{"lost"});
    QWidget other;
    other.show();
    QApplication::setActiveWindow(&other);
    loseKeyboard(Qt::ActiveWindowFocusReason);
    EXPECT_EQ(heard(), Told{"lost"});
}

TEST_F(RichTextEvents, ClickWithCtrl_IsReportedForALetter_ButNotBesideTheText) {
    rtb.setText(u"ab\r\ncd");
    rtb.CtrlClick = [this](std::int32_t position) {
        told.push_back("hear " + std::to_string(position));
        return true;
    };
    QTextCursor last(rtb.document());
    last.movePosition(QTextCursor::End);
    const QPoint behind = rtb.cursorRect(last).center();
    for (const int distance : {-4, 40})
        QTest::mouseClick(rtb.viewport(), Qt::LeftButton, Qt::ControlModifier, behind + QPoint(distance, 0));
    EXPECT_EQ(heard(), (Told{"hear 5", "mouse 1"}));
}
