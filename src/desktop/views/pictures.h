#pragma once

#include "base/text.h"

#include <QCursor>
#include <QIcon>
#include <QPixmap>

namespace desktop {

// Loads the picture at this path; on a high-density screen, its double-size variant ("name@2x.jpg") if there
// is one. A null pixmap if it cannot be read.
QPixmap loadPicture(base::TextView path, double devicePixelRatio);

// Loads an icon file, without pictures wider than `largest` pixels.
QIcon loadIcon(base::TextView path, int largest);

// Loads a mouse pointer from an icon file, with its hot spot at the finger tip; the standard arrow if it
// cannot be read.
QCursor loadPointer(base::TextView path, double devicePixelRatio);

} // namespace desktop
