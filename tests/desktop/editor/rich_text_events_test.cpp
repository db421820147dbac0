#include "rich_text_fixture.h"

#include <QAction>
#include <QDragEnterEvent>
#include <QInputMethodEvent>

using tests::RichText;

// Logs what reaches the program: "down 70/2", "up 116/0".
struct RichTextEvents : RichText {
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

TEST_F(RichTextEvents, Keys_AreReportedWithTheirCodes_ReleasesOnceAfterTheirPress_EditShortcutsAsCommands) {
    constexpr auto press = QEvent::KeyPress, release = QEvent::KeyRelease,
                   override = QEvent::ShortcutOverride;
    constexpr auto lost = QEvent::FocusOut; // another control gets the focus
    constexpr auto control = Qt::ControlModifier, shift = Qt::ShiftModifier;
    // The events of a key; true for those of a held one.
    const std::tuple<int, Qt::KeyboardModifiers, std::vector<std::pair<QEvent::Type, bool>>, Told> rows[] = {
        {Qt::Key_F4, shift | Qt::KeypadModifier, {{press, 0}, {release, 0}}, {"down 115/1", "up 115/1"}},
        {Qt::Key_Z, control | Qt::AltModifier, {{press, 0}, {release, 0}}, {"down 90/6", "up 90/6"}},
        {Qt::Key_Return, {}, {{press, 0}, {release, 0}}, {"down 13/0", "up 13/0"}},
        {Qt::Key_Dead_Acute, {}, {{press, 0}, {release, 0}}, {}},
        // A held key repeats its press; the X server also repeats its release.
        {Qt::Key_F3,
         {},
         {{press, 0}, {release, 1}, {press, 1}, {release, 0}},
         {"down 114/0", "down 114/0", "up 114/0"}},
        // A player key that returned the focus before it was released.
        {Qt::Key_F5, {}, {{release, 0}, {press, 1}, {release, 0}}, {"down 116/0"}},
        // A key pressed here, whose press went to a menu.
        {Qt::Key_S, control, {{override, 0}, {release, 0}}, {"up 83/2"}},
        {Qt::Key_F6, {}, {{press, 0}, {lost, 0}, {release, 0}}, {"down 117/0", "lost"}},
        {Qt::Key_Z, control, {{press, 0}}, {"down 90/2", "edit 0"}},
        {Qt::Key_Z, control | shift, {{press, 0}}, {"down 90/3", "edit 1"}},
        {Qt::Key_Delete, shift, {{press, 0}}, {"down 46/1", "edit 2"}},
        {Qt::Key_Insert, control, {{press, 0}}, {"down 45/2", "edit 3"}},
        {Qt::Key_Insert, shift, {{press, 0}}, {"down 45/1", "edit 4"}},
    };
    rtb.setText(u"ab");
    select(0, 1);
    for (const auto& [key, held, events, expected] : rows) {
        changes = 0;
        for (const auto& [type, repeated] : events)
            type == lost ? loseKeyboard(Qt::MouseFocusReason)
                         : static_cast<void>(send(type, key, held, repeated));
        EXPECT_EQ(heard(), expected);
        EXPECT_TRUE(changes == 0 || key == Qt::Key_Return) << key;
    }
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

TEST_F(RichTextEvents, KeysOfTheText_OverrideMenus_AndANonLatinLetterIsTheLatinOneOfItsKey) {
    QAction selectAll(&rtb);
    selectAll.setShortcut(Qt::CTRL | Qt::Key_A);
    QObject::connect(&selectAll, &QAction::triggered, &rtb, [this] { told.emplace_back("menu"); });
    const std::tuple<int, quint32, bool, Told> rows[] = {
        {0x421, 54, true, {"down 67/2"}}, // Cyrillic
        {0x424, 38, false, {"down 65/2", "menu"}},
        {0x3A9, 55, true, {"down 86/2"}}, // Greek
        {0x416, 47, false, {}},           // not a letter key
        {Qt::Key_Comma, 25, false, {}},   // Latin layout
        {Qt::Key_Odiaeresis, 38, false, {}},
        {Qt::Key_Q, 38, true, {"down 81/2"}},
        {Qt::Key_S, 39, false, {"down 83/2"}},
        {Qt::Key_F12, 96, true, {"down 123/2"}},
    };
    for (const auto& [key, place, ofText, expected] : rows) {
        EXPECT_EQ(send(QEvent::ShortcutOverride, key, Qt::ControlModifier, false, {}, place), ofText) << key;
        send(QEvent::KeyPress, key, Qt::ControlModifier, false, {}, place);
        EXPECT_EQ(heard(), expected) << key;
    }
}

TEST_F(RichTextEvents, Change_IsReportedOncePerKey_IfTheTextChanged) {
    const std::tuple<int, Qt::KeyboardModifiers, QString, int, int, int, const char*> rows[] = {
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
        {Qt::Key_Delete, Qt::ControlModifier, {}, 0, 0, 1, "|/c"},
        {Qt::Key_Backspace, Qt::ControlModifier | Qt::ShiftModifier, {}, 1, 0, 1, "|b/c"},
        {Qt::Key_Delete, Qt::ControlModifier | Qt::ShiftModifier, {}, 1, 0, 1, "a|/c"},
        {Qt::Key_Delete, Qt::ControlModifier | Qt::ShiftModifier, {}, 2, 0, 0, "ab|/c"},
        {Qt::Key_Up, Qt::ControlModifier, {}, 5, 0, 0, "ab/|c"},
        {Qt::Key_Up, Qt::ControlModifier, {}, 4, 0, 0, "|ab/c"},
        {Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier, {}, 1, 0, 0, "a[b/]c"},
        {Qt::Key_Down, Qt::ControlModifier, {}, 4, 0, 0, "ab/c|"},
        // Keys that Qt would handle
        {Qt::Key_K, Qt::ControlModifier, QStringLiteral("\v"), 1, 0, 0, "a|b/c"},
        {Qt::Key_D, Qt::ControlModifier, QStringLiteral("\4"), 1, 0, 0, "a|b/c"},
        {Qt::Key_I, Qt::ControlModifier | Qt::AltModifier, QStringLiteral("\t"), 1, 0, 0, "a|b/c"},
        {Qt::Key_J, Qt::AltModifier, QStringLiteral("j"), 1, 0, 0, "a|b/c"},
        {Qt::Key_Backtab, Qt::ShiftModifier, {}, 1, 0, 0, "a|b/c"},
        {Qt::Key_Escape, {}, QStringLiteral("\33"), 1, 0, 0, "a|b/c"},
    };
    for (const auto& [key, held, text, start, length, expected, after] : rows) {
        rtb.setText(u"ab\r\nc");
        select(start, length);
        changes = 0;
        EXPECT_TRUE(send(QEvent::KeyPress, key, held, false, text))
            << "otherwise the window would handle it: " << key;
        EXPECT_EQ(shown(), after);
        EXPECT_EQ(changes, expected) << after;
        EXPECT_TRUE(changes == 0 || watch.seen == after) << "reported with the old text: " << watch.seen;
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
    select(0, 1);
    watch.formats = changes = 0;
    const std::tuple<QString, QString, const char*, int> road[] = {
        {QStringLiteral("ni"), {}, "|b", 1}, // composing replaces the selection
        {{}, QStringLiteral("\u4F60"), "\u4F60|b", 2},
        {QStringLiteral("x"), {}, "\u4F60|b", 2},
        {{}, {}, "\u4F60|b", 2}, // cancelled
        {{}, QStringLiteral("\u00E9"), "\u4F60\u00E9|b", 3}};
    for (const auto& [composed, committed, after, count] : road) {
        input(composed, committed);
        EXPECT_EQ(shown(), after);
        EXPECT_EQ(changes, count);
    }
    EXPECT_EQ(watch.formats, 0);
}

TEST_F(RichTextEvents, Typed_ReportsWhatKeysAndInputMethodsInsert_AndNothingElse) {
    std::vector<std::string> typed;
    bool whileTyping = true;
    rtb.Typed = [&](base::TextView inserted) {
        typed.push_back(base::toUtf8(base::replaced(inserted, u"\r\n", u"/")));
        whileTyping = whileTyping && rtb.isTyping();
    };
    rtb.setText(u"ab\r\nc");
    select(1, 1);
    for (const auto& [key, text] : {std::pair{Qt::Key_X, "x"}, {Qt::Key_Return, "\r"}, {Qt::Key_Space, " "}})
        send(QEvent::KeyPress, key, {}, false, QString::fromLatin1(text));
    input(QStringLiteral("ni"), {});
    input({}, QStringLiteral("\u4F60\u597D"));
    EXPECT_EQ(shown(), "ax/ \u4F60\u597D|/c");
    EXPECT_EQ(std::exchange(typed, {}), (std::vector<std::string>{"x", "/", " ", "\u4F60\u597D"}));
    EXPECT_TRUE(whileTyping);
    for (const int key : {Qt::Key_Right, Qt::Key_Delete, Qt::Key_Left, Qt::Key_Backspace})
        send(QEvent::KeyPress, key);
    rtb.setSelText(u"z ");
    rtb.setSelRTF(u"{\\rtf1 pasted }");
    QMimeData data;
    data.setText(QStringLiteral("dropped "));
    drop(data);
    EXPECT_TRUE(typed.empty());
    EXPECT_FALSE(rtb.isTyping());
}

TEST_F(RichTextEvents, Offer_IsPaintedBehindTheCaret_UntilItMoves) {
    rtb.resize(300, 100);
    rtb.show();
    rtb.setText(u"some con");
    select(8, 0);
    const auto picture = [this] {
        QApplication::processEvents();
        return rtb.viewport()->grab().toImage();
    };
    const QImage without = picture();
    EXPECT_TRUE(rtb.offer(u"versation"));
    EXPECT_NE(picture(), without);
    EXPECT_EQ(rtb.Text(), u"some con");
    select(7, 0);
    picture();
    select(8, 0);
    EXPECT_EQ(picture(), without) << "the caret has moved meanwhile";
    EXPECT_FALSE(rtb.offer(base::Text(100, u'x'))) << "no room";
    EXPECT_EQ(picture(), without);
}

TEST_F(RichTextEvents, Wheel_WithCtrl_AndKeys_AskForAnotherSize) {
    std::vector<int> asked;
    rtb.Zoom = [&](int steps) { asked.push_back(steps); };
    const auto wheel = [this](int delta) {
        QWheelEvent event({9, 9}, {9, 9}, {}, {0, delta}, Qt::NoButton, Qt::ControlModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(rtb.viewport(), &event);
    };
    for (const int delta : {120, -240, 60, 60})
        wheel(delta);
    send(QEvent::KeyPress, Qt::Key_Equal, Qt::ControlModifier);
    send(QEvent::KeyPress, Qt::Key_Minus, Qt::ControlModifier | Qt::KeypadModifier);
    send(QEvent::KeyPress, Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(asked, (std::vector<int>{1, -2, 1, 1, -1, 0}));
    EXPECT_EQ(rtb.Text(), u"");
}

TEST_F(RichTextEvents, Drop_IsOneChange_WithFormatsFromRtfOnly) {
    rtb.resize(300, 100);
    rtb.setSelRTF(u"{\\rtf1 {\\b x}y}");
    select(0, 1);
    const std::unique_ptr<QMimeData> own(rtb.createMimeDataFromSelection());
    EXPECT_EQ(own->text(), QStringLiteral("x"));
    const std::tuple<const char*, QByteArray, base::TextView, bool> rows[] = {
        {"text/rtf", own->data(QStringLiteral("text/rtf")), u"abx", true},
        {"text/plain", "x\ny", u"abx\r\ny", false},
        {"text/html", "<p><b>x</b> &amp; y</p>", u"abx & y", false},
        {"text/uri-list", "file:///tmp/a.mp3", u"ab", false},
        {"image/png", "PNG", u"ab", false},
    };
    for (const auto& [type, bytes, after, bold] : rows) {
        rtb.setText(u"ab");
        changes = 0;
        QMimeData data;
        data.setData(QString::fromLatin1(type), bytes);
        drop(data);
        EXPECT_EQ(rtb.Text(), after) << type;
        EXPECT_EQ(changes, after == u"ab" ? 0 : 1) << type;
        select(2, 1);
        EXPECT_EQ(rtb.SelBold() == platform::Setting::On, bold) << type;
    }
}

TEST_F(RichTextEvents, DragWithinTheText_IsARemovalAndAnInsertion) {
    const std::tuple<int, int, Told> rows[] = {
        {0, 1, {"|b/cd", "b/cda|"}}, {1, 4, {"a|d", "adb/c|"}}, {4, 2, {}}, // onto itself
    };
    for (const auto& [start, length, reported] : rows) {
        rtb.setText(u"ab\r\ncd");
        select(start, length);
        rtb.Change = [&] { told.push_back(shown()); };
        QTextCursor end(rtb.document());
        end.movePosition(QTextCursor::End);
        const std::unique_ptr<QMimeData> dragged(rtb.createMimeDataFromSelection());
        rtb.moveSelection(*dragged, end);
        EXPECT_EQ(heard(), reported);
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

TEST_F(RichTextEvents, RightButton_OffersItsLetter_BeforeItIsAPress) {
    rtb.resize(400, 200);
    rtb.setText(u"ab\r\ncd");
    rtb.RightClick = [this](std::int32_t position) {
        told.push_back("right " + std::to_string(position));
        return position == 4;
    };
    const auto press = [this](int documentPosition) {
        QTextCursor cursor(rtb.document());
        cursor.setPosition(documentPosition);
        const QPointF place = rtb.cursorRect(cursor).center() + QPointF(3, 0);
        QMouseEvent event(QEvent::MouseButtonPress, place, rtb.viewport()->mapToGlobal(place),
                          Qt::RightButton, Qt::RightButton, Qt::NoModifier);
        QApplication::sendEvent(rtb.viewport(), &event);
        return heard();
    };
    EXPECT_EQ(press(3), Told{"right 4"});
    EXPECT_EQ(press(0), (Told{"right 0", "mouse 2"}));
    EXPECT_EQ(press(5), Told{"mouse 2"}) << "behind the text";
}
