#pragma once

#include <QString>

namespace desktop {

// Shows the guide, an HTML file, in a window of the program, on a system that has no browser.
void showGuide(const QString& path);

} // namespace desktop
