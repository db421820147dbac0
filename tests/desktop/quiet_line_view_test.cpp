#include "desktop/windows/quiet_line_view.h"

#include "qt_testing.h"

#include <QAccessible>

TEST(QuietLineView, HasTheSizeOfItsText_IsAnAlert_AndTakesNoFocus) {
    safety::QuietLineWindow form;
    int clicks = 0;
    form.Click = [&] { ++clicks; };
    desktop::QuietLineView view(form);
    form.caption = u"one";
    form.visible = true;
    const double oneLine = form.height;
    form.caption = u"one\n" + base::replaced(base::Text(200, u'w'), u"ww", u"ww/");

    // On the offscreen platform no screen reader is notified, but role and text of an alert can be queried.
    QAccessibleInterface* const heard = QAccessible::queryAccessibleInterface(&view);
    ASSERT_TRUE(heard);
    EXPECT_EQ(heard->role(), QAccessible::AlertMessage);
    EXPECT_EQ(heard->text(QAccessible::Name), view.accessibleName());
    EXPECT_TRUE(view.accessibleName().startsWith(QStringLiteral("one")));
    EXPECT_GT(form.height, 1.8 * oneLine);
    EXPECT_EQ(view.size(), QSize(desktop::pixels(form.width), desktop::pixels(form.height)));
    EXPECT_TRUE(view.windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
    EXPECT_TRUE(view.testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_FALSE(view.isActiveWindow());
    QTest::mouseClick(&view, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
}
