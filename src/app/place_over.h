#pragma once

#include "controls/controls.h"
#include "player/form1.h"

#include <algorithm>

namespace app {

// Gives a window of an addition its first position: over the editor, `step` twips to the right of and below
// the editor's top left corner, within the screen. It also gets the editor's icon, and stays on top if the
// player does, which would cover it on a small screen.
inline void placeOver(const controls::Window& editor, const player::Form1& player, double step,
                      controls::Window& window) {
    const controls::Screen& screen = player.screen;
    window.icon = editor.icon.get();
    window.topmost = player.topmost.get();
    window.left = std::clamp(editor.left + step, 0.0, std::max(0.0, screen.width - window.width));
    window.top = std::clamp(editor.top + step, 0.0, std::max(0.0, screen.height - window.height));
}

} // namespace app
