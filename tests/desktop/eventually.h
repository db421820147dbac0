#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>

namespace fakes {

// Runs the event loop until the condition holds; returns false on a timeout.
template <typename Condition>
bool eventually(Condition condition, int milliseconds = 10'000) {
    QElapsedTimer clock;
    clock.start();
    while (!condition()) {
        if (clock.elapsed() > milliseconds)
            return false;
        QCoreApplication::processEvents();
        QThread::usleep(300);
    }
    return true;
}

inline void runLoop(int milliseconds) {
    eventually([] { return false; }, milliseconds);
}

} // namespace fakes
