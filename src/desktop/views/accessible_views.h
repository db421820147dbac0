#pragma once

namespace desktop {

// Tells Qt what to report about the program's own widgets to screen readers. Only the first call has an
// effect.
void prepareAccessibleViews();

} // namespace desktop
