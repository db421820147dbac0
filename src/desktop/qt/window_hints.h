#pragma once

class QWindow;

namespace desktop {

// Lets a window that was minimised once, and brought back by the window manager, come up as a window when it
// is shown the next time. Qt leaves the note with the X server that it is to begin as an icon.
void beginUnminimised(const QWindow& window);

} // namespace desktop
