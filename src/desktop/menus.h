#pragma once

#include "controls/controls.h"

#include <QMenuBar>
#include <vector>

namespace desktop {

// Fills the menu bar with these menus: each item an action under its given name that follows its data.
void buildMenus(QMenuBar& bar, const std::vector<controls::MenuItem*>& menus);

} // namespace desktop
