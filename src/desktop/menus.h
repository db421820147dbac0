#pragma once

#include "controls/controls.h"

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

} // namespace desktop
