#pragma once

#include "controls/controls.h"

#include <QKeyEvent>
#include <QMenuBar>
#include <vector>

namespace desktop {

// The menu bar of a window, with one line below it. Each item is an action under its given name that follows
// its data; one without items of its own is a command on the bar.
class MenuBar : public QMenuBar {
public:
    MenuBar(const std::vector<controls::MenuItem*>& menus, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

// Runs the command of the window's menus whose shortcut has its letter at the place of this key, which is one
// of another script: Qt itself finds a shortcut by the letters of the user's layouts only. False when there
// is none.
bool runShortcutByPlace(const QWidget& window, const QKeyEvent& event);

} // namespace desktop
