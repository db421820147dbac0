#pragma once

#include "base/text.h"

#include <QCursor>
#include <QIcon>
#include <QPixmap>

namespace desktop {

// The picture file at this path, in its variant of twice the size ("name@2x.jpg") where the screen is finer
// than 1 and there is one. Null when it cannot be read.
QPixmap loadPicture(base::TextView path, double devicePixelRatio);

// The icon in this file, with those of its pictures that are at most `largest` pixels wide.
QIcon loadIcon(base::TextView path, int largest);

// The pointer drawn in this icon file, with its hot spot at the finger tip; the usual arrow when it cannot be
// read.
QCursor loadPointer(base::TextView path, double devicePixelRatio);

} // namespace desktop
