#include "desktop/views/hover_pointer.h"

#include "desktop/views/pictures.h"

#include <QEvent>
#include <QWidget>

namespace desktop {

HoverPointer::HoverPointer(const controls::Control& control, QWidget& view)
    : QObject(&view), control_(control), view_(view) {
    view.installEventFilter(this);
}

bool HoverPointer::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Enter && !control_.pointerIcon.get().empty() &&
        (shown_ != control_.pointerIcon.get() || readFor_ != view_.devicePixelRatioF())) {
        shown_ = control_.pointerIcon;
        readFor_ = view_.devicePixelRatioF();
        view_.setCursor(loadPointer(shown_, readFor_));
    }
    return QObject::eventFilter(watched, event);
}

} // namespace desktop
