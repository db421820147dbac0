#include "desktop/menus.h"

#include "desktop/conversions.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>

namespace desktop {

namespace {

constexpr base::TextView separatorCaption = u"-";
constexpr qsizetype longestCaption = 90; // characters; a longer one, a path, is shown without its middle

QString shown(const base::Text& caption) {
    QString whole = qstring(base::TextView(caption));
    if (whole.size() <= longestCaption)
        return whole;
    return whole.left(longestCaption / 2) + QChar(0x2026) + whole.right(longestCaption / 2);
}

void follow(QAction& action, const controls::MenuItem& item) {
    // Qt would write the text of a separator beside its line.
    if (!action.isSeparator())
        action.setText(shown(item.caption));
    action.setEnabled(item.offered());
    action.setVisible(item.visible);
    // A mark appears only where there is one: the program tells no other way which items can carry it.
    if (item.checked)
        action.setCheckable(true);
    action.setChecked(item.checked);
}

void addItem(QMenu& menu, controls::MenuItem& item) {
    auto* const action = new QAction(&menu);
    action->setObjectName(qstring(item.name));
    action->setSeparator(item.caption.get() == separatorCaption);
    action->setShortcut(QKeySequence::fromString(qstring(item.shortcut)));
    action->setAutoRepeat(item.repeats);
    // The command of the program sets the mark, if it does at all; Qt's own toggle must not run ahead of it.
    QObject::connect(action, &QAction::triggered, action, [action, &item] {
        if (item.offered())
            item.Click();
        action->setChecked(item.checked);
    });
    item.observe([action, &item] { follow(*action, item); });
    follow(*action, item);
    menu.addAction(action);
}

} // namespace

void buildMenus(QMenuBar& bar, const std::vector<controls::MenuItem*>& menus) {
    for (controls::MenuItem* const item : menus) {
        auto* const menu = new QMenu(&bar);
        menu->setObjectName(qstring(item->name));
        menu->setSeparatorsCollapsible(false);
        for (controls::MenuItem* const inner : item->items)
            addItem(*menu, *inner);
        item->observe([menu, item] { follow(*menu->menuAction(), *item); });
        follow(*menu->menuAction(), *item);
        bar.addMenu(menu);
    }
}

} // namespace desktop
