// What the tests of the media player share: waiting on the Qt loop.
#pragma once

#include "platform/media_player.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>

namespace listening {

// Runs the loop until the condition holds; false when it does not within the time.
template <typename Condition>
bool waitFor(Condition condition, int milliseconds = 5000) {
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
    waitFor([] { return false; }, milliseconds);
}

} // namespace listening
