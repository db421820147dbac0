#pragma once

#include <QObject>

namespace desktop {

// As long as this lives no event reaches anything of the program: keys and clicks that wait in a queue,
// timers, and what other threads have posted. Only what is posted to the application itself still arrives, so
// that it can leave its loop.
class EventStop : public QObject {
public:
    EventStop();
    bool eventFilter(QObject* receiver, QEvent* event) override;
};

} // namespace desktop
