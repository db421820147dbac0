// The window of the bookmarks and the input dialog as Qt has them.
#include "desktop/conversions.h"
#include "desktop/form3_window.h"
#include "desktop/form4_window.h"
#include "eventually.h"
#include "fakes/virtual_loop.h"

#include <QApplication>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

class Form4WindowTest : public testing::Test {
protected:
    // Opens the dialog as a caller does, and lets the user act in it.
    void open(const std::function<void()>& user) {
        form.Text1.selLength = 0;
        form.Text1.text = u"40";
        form.Text1.selLength = 2;
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, [&] {
            if (!window.isVisible())
                return;
            look.stop();
            EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
            QApplication::setActiveWindow(&window);
            user();
            form.visible = false;
        });
        look.start(1);
        form.showModal();
    }
    static void key(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }

    dictation::Form4 form;
    desktop::Form4Window window{form};
};

TEST_F(Form4WindowTest, Keys_TypeOverTheSelection_AndPressTheButtons) {
    int pressed = 0;
    int cancelled = 0;
    form.Command1.Click = [&] { ++pressed; };
    form.Command2.Click = [&] { ++cancelled; };
    form.KeyDown = [&](platform::KeyEvent& event) { pressed += event.keyCode == 13; };
    for (int round = 0; round < 2; ++round) {
        pressed = cancelled = 0;
        open([&] {
            ASSERT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("Text1"));
            key(Qt::Key_7);
            EXPECT_EQ(form.Text1.text.get(), u"7");
            EXPECT_TRUE(QApplication::activeModalWidget() == &window);
            const std::pair<Qt::Key, std::pair<int, int>> road[] = {
                {Qt::Key_Return, {1, 0}}, {Qt::Key_Escape, {1, 0}}, {Qt::Key_Tab, {1, 0}},
                {Qt::Key_Enter, {2, 0}},  {Qt::Key_Tab, {2, 0}},    {Qt::Key_Return, {2, 1}}};
            for (const auto& [next, counts] : road) {
                key(next);
                EXPECT_EQ(std::pair(pressed, cancelled), counts) << next;
                EXPECT_TRUE(form.visible);
            }
        });
        EXPECT_FALSE(window.isVisible());
    }
}

TEST(Form3Window, List_FollowsTheData_AndReportsChoicesAndDoubleClicks) {
    fakes::VirtualLoop loop;
    bookmarks::Form3 form(loop);
    form.List1.items = {u"00:00:01  a", u"00:00:02  b\tc", u"x", base::Text(10000, u'w')};
    int doubleClicks = 0;
    form.List1.DblClick = [&] { ++doubleClicks; };
    desktop::Form3Window window(form);
    form.visible = true;
    ASSERT_TRUE(fakes::eventually([&] { return window.isVisible(); }));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    auto& list = *window.findChild<QListView*>(QStringLiteral("List1"));
    const auto place = [&](int row) { return list.visualRect(list.model()->index(row, 0)).center(); };
    const QImage rows = list.viewport()->grab().toImage();
    EXPECT_EQ(rows.pixelColor(place(0) / rows.devicePixelRatio()), QColor(Qt::white));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place(1));
    EXPECT_EQ(form.List1.listIndex, 1);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place(1));
    EXPECT_EQ(doubleClicks, 1);
    form.List1.listIndex = 3;
    EXPECT_EQ(list.currentIndex().row(), 3);
    // Whatever the size, both buttons can be reached.
    for (const QSize size : {QSize(500, 400), QSize(1, 1)}) {
        window.resize(size);
        for (const auto* const name : {"Command1", "Command2"})
            EXPECT_TRUE(window.rect().contains(window.findChild<QWidget*>(QLatin1String(name))->geometry()));
    }
}
