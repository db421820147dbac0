#pragma once

#include <QObject>

namespace desktop {

// While this object exists, it blocks all events of the program: queued keys and clicks, timers, and posts
// from other threads. Only calls posted to the application object pass, so that the event loop can be ended.
class EventStop : public QObject {
public:
    EventStop();
    bool eventFilter(QObject* receiver, QEvent* event) override;
};

} // namespace desktop
