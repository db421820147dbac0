#include "desktop/qt/event_stop.h"

#include <QCoreApplication>
#include <QEvent>

namespace desktop {

EventStop::EventStop() {
    QCoreApplication::instance()->installEventFilter(this);
}

bool EventStop::eventFilter(QObject* receiver, QEvent* event) {
    return event->type() != QEvent::MetaCall || receiver != QCoreApplication::instance();
}

} // namespace desktop
