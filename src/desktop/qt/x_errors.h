#pragma once

namespace desktop {

// From now on no error that the X server tells on a connection of Xlib's ends the process. What goes wrong
// there costs a picture, and Xlib's own answer, to exit at once, would cost the unsaved text.
void surviveXErrors();

} // namespace desktop
