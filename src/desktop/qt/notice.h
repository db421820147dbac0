#pragma once

#include <QString>

namespace desktop {

// Shows a non-modal message about a failure that the rooms ignore. `about` replaces %1 in `words`, which the
// language files may translate.
void notify(const char* words, const QString& about);

} // namespace desktop
