#pragma once

#include "controls/controls.h"

#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <vector>

namespace desktop {

// The menu bar of a window, with a line below it. Each item is an action with its given name that follows its
// data; an item without subitems is a command on the bar itself.
class MenuBar : public QMenuBar {
public:
    MenuBar(const std::vector<controls::MenuItem*>& menus, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

// A menu as its items are now. Those that a menu of the window has too are the same as there.
QMenu* newMenu(const controls::MenuItem& item, QWidget& window);

// Runs the menu command whose shortcut letter lies on the physical key of this event, for a keyboard layout
// of another script: Qt itself matches only letters of the user's layouts. Returns false if there is none.
bool runShortcutByPlace(const QWidget& window, const QKeyEvent& event);

} // namespace desktop
