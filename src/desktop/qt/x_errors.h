#pragma once

namespace desktop {

// From now on, X errors on Xlib connections do not end the process. Such an error costs at most a picture,
// while Xlib's default handler would exit at once and lose unsaved text.
void surviveXErrors();

} // namespace desktop
