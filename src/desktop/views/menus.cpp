#include "desktop/views/menus.h"

#include "desktop/qt/conversions.h"
#include "desktop/qt/key_codes.h"

#include <QAccessible>
#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QPainter>

namespace desktop {

namespace {

constexpr base::TextView separatorCaption = u"-";
constexpr qsizetype longestCaption = 90; // characters; the middle of a longer one, a path, is left out

QString shown(const base::Text& caption) {
    QString whole = qstring(base::TextView(caption));
    if (whole.size() <= longestCaption)
        return whole;
    return whole.left(longestCaption / 2) + QChar(0x2026) + whole.right(longestCaption / 2);
}

void follow(QAction& action, const controls::MenuItem& item) {
    // Qt would draw a separator's text beside its line.
    if (!action.isSeparator())
        action.setText(shown(item.caption));
    action.setEnabled(item.offered());
    action.setVisible(item.visible);
    // An item becomes checkable when it is first checked: the data does not say otherwise which items can
    // carry a mark.
    if (item.checked)
        action.setCheckable(true);
    action.setChecked(item.checked);
}

// An action that shows the item as it is now.
QAction* newAction(QWidget& menu, controls::MenuItem& item) {
    auto* const action = new QAction(&menu);
    action->setObjectName(qstring(item.name));
    action->setSeparator(item.caption.get() == separatorCaption);
    action->setShortcut(QKeySequence::fromString(qstring(item.shortcut)));
    action->setAutoRepeat(item.repeats);
    // The program's command sets the mark, if at all; this undoes Qt's automatic toggle.
    const auto run = [action, &item] {
        if (item.offered())
            item.Click();
        action->setChecked(item.checked);
    };
    QObject::connect(action, &QAction::triggered, action, [action, run] {
        // The command may open a dialog, and a screen reader that triggered it waits for the end of its call.
        if (QAccessible::isActive())
            QMetaObject::invokeMethod(action, run, Qt::QueuedConnection);
        else
            run();
    });
    follow(*action, item);
    menu.addAction(action);
    return action;
}

void addCommand(QWidget& menu, controls::MenuItem& item) {
    QAction* const action = newAction(menu, item);
    item.observe([action, &item] { follow(*action, item); });
}

// Adds a command, or a menu with its commands.
void addItem(QWidget& above, controls::MenuItem& item) {
    if (item.items.empty())
        return addCommand(above, item);
    auto* const menu = new QMenu(&above);
    menu->setObjectName(qstring(item.name));
    menu->setSeparatorsCollapsible(false);
    for (controls::MenuItem* const inner : item.items)
        addItem(*menu, *inner);
    item.observe([menu, &item] { follow(*menu->menuAction(), item); });
    follow(*menu->menuAction(), item);
    above.addAction(menu->menuAction());
}

} // namespace

MenuBar::MenuBar(const std::vector<controls::MenuItem*>& menus, QWidget* parent) : QMenuBar(parent) {
    for (controls::MenuItem* const item : menus)
        addItem(*this, *item);
}

void MenuBar::paintEvent(QPaintEvent* event) {
    // Drawn as one line: the style would draw it for each item, with gaps on high-density screens.
    QMenuBar::paintEvent(event);
    QPainter painter(this);
    painter.fillRect(QRect(0, height() - 1, width(), 1), QColor(0xE3, 0xE8, 0xEB));
}

QMenu* newMenu(const controls::MenuItem& item, QWidget& window) {
    auto* const menu = new QMenu(&window);
    menu->setSeparatorsCollapsible(false);
    for (controls::MenuItem* const inner : item.items) {
        if (auto* const known = window.findChild<QAction*>(qstring(inner->name)))
            menu->addAction(known);
        else
            newAction(*menu, *inner);
    }
    return menu;
}

bool runShortcutByPlace(const QWidget& window, const QKeyEvent& event) {
    const int key = latinKey(event);
    if (key == event.key())
        return false;
    const QKeySequence shortcut(event.modifiers() | Qt::Key(key));
    for (QAction* const action : window.findChildren<QAction*>() + window.actions()) {
        if (action->shortcut() != shortcut)
            continue;
        if (action->autoRepeat() || !event.isAutoRepeat())
            action->trigger();
        return true;
    }
    return false;
}

} // namespace desktop
