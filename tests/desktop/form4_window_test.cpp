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
            key(Qt::Key_7);
            EXPECT_EQ(form.Text1.text.get(), u"7");
            const std::pair<Qt::Key, std::pair<int, int>> road[] = {
                {Qt::Key_Return, {1, 0}}, {Qt::Key_Escape, {1, 0}}, {Qt::Key_Tab, {1, 0}},
                {Qt::Key_Enter, {2, 0}},  {Qt::Key_Tab, {2, 0}},    {Qt::Key_Return, {2, 1}}};
            for (const auto& [next, counts] : road) {
                key(next);
                EXPECT_EQ(std::pair(pressed, cancelled), counts) << next;
            }
            EXPECT_TRUE(form.visible) << "the data says when it goes";
        });
        EXPECT_FALSE(window.isVisible());
    }
}

TEST(Form3Window, List_FollowsTheData_BesideButtonsThatCanBeReached) {
    fakes::VirtualLoop loop;
    bookmarks::Form3 form(loop);
    form.List1.items = {u"00:00:01  a", u"x", base::Text(10000, u'w')};
    desktop::Form3Window window(form);
    form.visible = true;
    ASSERT_TRUE(fakes::eventually([&] { return window.isVisible(); }));
    const auto& list = *window.findChild<QListView*>(QStringLiteral("List1"));
    form.List1.listIndex = 2;
    EXPECT_EQ(list.currentIndex().row(), 2);
    for (const QSize size : {QSize(500, 400), QSize(1, 1)}) {
        window.resize(size);
        for (const auto* const name : {"Command1", "Command2"})
            EXPECT_TRUE(window.rect().contains(window.findChild<QWidget*>(QLatin1String(name))->geometry()));
    }
}
