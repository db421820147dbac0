#include "desktop/windows/form4_window.h"
#include "qt_testing.h"

TEST(Form4Window, Keys_ReplaceTheSelection_AndPressTheButtons) {
    dictation::Form4 form;
    desktop::Form4Window window{form};
    int pressed = 0;
    int cancelled = 0;
    form.Command1.Click = [&] { ++pressed; };
    form.Command2.Click = [&] { ++cancelled; };
    form.Text1.text = u"40";
    form.Text1.selLength = 2;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        if (!window.isVisible())
            return;
        look.stop();
        QApplication::setActiveWindow(&window);
        const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
        press(Qt::Key_7);
        EXPECT_EQ(form.Text1.text.get(), u"7");
        for (const char* pasted : {"1\n2", "3\r\n4\n", "\r"}) {
            press(Qt::Key_Home);
            QApplication::clipboard()->setText(QString::fromLatin1(pasted));
            qobject_cast<QLineEdit*>(QApplication::focusWidget())->paste();
        }
        EXPECT_EQ(form.Text1.text.get(), u"317") << "a paste ends at its first line break";
        const std::pair<Qt::Key, std::pair<int, int>> road[] = {
            {Qt::Key_Return, {1, 0}}, {Qt::Key_Escape, {1, 0}}, {Qt::Key_Tab, {1, 0}},
            {Qt::Key_Enter, {2, 0}},  {Qt::Key_Tab, {2, 0}},    {Qt::Key_Return, {2, 1}}};
        for (const auto& [next, counts] : road) {
            press(next);
            EXPECT_EQ(std::pair(pressed, cancelled), counts) << next;
        }
        EXPECT_TRUE(form.visible) << "only the data closes the window";
        form.visible = false;
    });
    look.start(1);
    form.showModal();
    EXPECT_FALSE(window.isVisible());
}
