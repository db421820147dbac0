#pragma once

#include <QString>

namespace desktop {

// Tells the user of a failure of the desktop that the rooms pass over, in a box that blocks nothing. `about`
// is put in the place of %1 of `words`, which the language files may bring words for.
void notify(const char* words, const QString& about);

} // namespace desktop
