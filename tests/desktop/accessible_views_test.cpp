#include "desktop/qt/conversions.h"
#include "desktop/views/control_views.h"
#include "desktop/views/input_views.h"
#include "eventually.h"

#include <QAccessible>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

using desktop::qstring;
using fakes::eventually;

// One drawn control of each role on a ground.
struct AccessibleViewsTest : testing::Test {
    AccessibleViewsTest() {
        logo.accessible.role = controls::Role::Decoration;
        play.Click = [this] { play.accessible.on = !play.accessible.on.get(); };
        play.accessible.role = controls::Role::Toggle;
        play.toolTip = u" Play / Pause (F5) ";
        prompt.caption = u"&Name:";
        prompt.labels = &box;
        volume.accessible.role = controls::Role::Slider;
        volume.accessible.value = [this] { return percent; };
        volume.accessible.setValue = [this](double set) { percent = set; };
        volume.accessible.valueText = [this] { return base::Text(percent == 40 ? u"40%" : u"?"); };
        new desktop::PictureView(logo, &ground);
        new desktop::PictureButtonView(play, &ground);
        new desktop::LabelView(prompt, &ground);
        desktop::addView(box, ground);
        new desktop::PictureView(volume, &ground);
        ground.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&ground));
    }
    QWidget& view(const controls::Control& control) {
        return *ground.findChild<QWidget*>(qstring(control.name));
    }
    QAccessibleInterface& heard(const controls::Control& control) {
        return *QAccessible::queryAccessibleInterface(&view(control));
    }

    double percent = 40;
    controls::Picture logo{"logo", {0, 0, 1500, 1500}};
    controls::PictureButton play{"play", {0, 0, 600, 600}};
    controls::Label prompt{"prompt", {0, 600, 600, 300}};
    controls::TextBox box{"box", {600, 600, 600, 300}};
    controls::Picture volume{"volume", {0, 900, 600, 300}};
    desktop::Ground ground;
};

TEST_F(AccessibleViewsTest, Tree_HasRoleNameStateAndLinks_AndNoDecoration) {
    QAccessibleInterface* const parent = QAccessible::queryAccessibleInterface(&ground);
    ASSERT_EQ(parent->childCount(), 4);
    const std::tuple<int, QAccessible::Role, const char*> rows[] = {
        {0, QAccessible::CheckBox, "Play / Pause (F5)"},
        {1, QAccessible::StaticText, "Name:"},
        {2, QAccessible::EditableText, "Name"},
        {3, QAccessible::Slider, ""}};
    for (const auto& [index, role, name] : rows) {
        QAccessibleInterface* const child = parent->child(index);
        EXPECT_EQ(child->role(), role) << name;
        EXPECT_EQ(child->text(QAccessible::Name), QLatin1String(name));
        EXPECT_EQ(parent->indexOfChild(child), index);
    }
    EXPECT_TRUE(heard(play).state().checkable);
    EXPECT_EQ(heard(play).actionInterface()->keyBindingsForAction(QAccessibleActionInterface::toggleAction()),
              QStringList(QStringLiteral("F5")));
    const auto links = heard(prompt).relations(QAccessible::Labelled);
    ASSERT_EQ(links.size(), 1);
    EXPECT_EQ(links[0].first->object(), &view(box));
    play.accessible.name = u"Play";
    play.enabled = false;
    EXPECT_EQ(heard(play).text(QAccessible::Name), QLatin1String("Play"));
    EXPECT_TRUE(heard(play).state().disabled);
    EXPECT_EQ(view(play).focusPolicy(), Qt::NoFocus);
}

TEST_F(AccessibleViewsTest, Toggle_IsPressedByActionSpaceAndEnter) {
    heard(play).actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_FALSE(play.accessible.on) << "not during the call of the screen reader";
    EXPECT_TRUE(eventually([&] { return play.accessible.on.get(); }));
    EXPECT_TRUE(heard(play).state().checked);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) {
        const bool before = play.accessible.on;
        QTest::keyClick(&view(play), key);
        EXPECT_NE(play.accessible.on, before);
    }
}

TEST_F(AccessibleViewsTest, Slider_IsSetByValueAndKeys_WithinItsRange) {
    QAccessibleValueInterface* const value = heard(volume).valueInterface();
    ASSERT_TRUE(value);
    EXPECT_EQ(value->currentValue(), 40);
    EXPECT_EQ(heard(volume).text(QAccessible::Description), QLatin1String("40%"));
    value->setCurrentValue(1000);
    EXPECT_EQ(percent, 100);
    for (const auto& [key, expected] : {std::pair{Qt::Key_Left, 95.},
                                        {Qt::Key_PageDown, 75.},
                                        {Qt::Key_Home, 0.},
                                        {Qt::Key_Down, 0.},
                                        {Qt::Key_Up, 5.},
                                        {Qt::Key_End, 100.}}) {
        QTest::keyClick(&view(volume), key);
        EXPECT_EQ(percent, expected) << key;
    }
}
