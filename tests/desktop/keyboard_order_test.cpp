#include "desktop/qt/keyboard_order.h"
#include "qt_testing.h"

TEST(KeyboardOrder, ClosedWindow_ReturnsTheFocusToThePreviousOne_OrTheRequestedOne) {
    const desktop::KeyboardOrder order;
    QWidget player;
    QWidget editor;
    const auto activate = [](QWidget& window) {
        window.show();
        desktop::giveKeyboard(window);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    };
    const auto hasKeyboard = [](QWidget& window) {
        return fakes::eventually([&] { return QApplication::activeWindow() == &window; });
    };
    activate(player);
    activate(editor);
    {
        QDialog box(&player); // the owner window does not matter
        box.setModal(true);
        activate(box);
        QDialog question(&box);
        question.setModal(true);
        activate(question);
        question.hide();
        player.activateWindow(); // like a window manager
        EXPECT_TRUE(hasKeyboard(box));
        box.hide();
        player.activateWindow();
        EXPECT_TRUE(hasKeyboard(editor)) << "again, after the focus has moved elsewhere";
        activate(box);
        box.hide();
        desktop::giveKeyboard(player);
        EXPECT_TRUE(hasKeyboard(player));
    }
    activate(editor);
    QWidget about;
    player.hide();
    editor.hide();
    activate(about);
    about.hide();
    player.show();
    editor.show();
    EXPECT_TRUE(hasKeyboard(editor)) << "also when both are shown again";
}
