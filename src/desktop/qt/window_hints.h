#pragma once

class QWindow;

namespace desktop {

// Makes a window appear normally the next time it is shown, even if it was minimised once and restored by the
// window manager: in that case Qt leaves a hint on the X server that the window starts as an icon.
void beginUnminimised(const QWindow& window);

} // namespace desktop
