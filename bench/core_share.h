#pragma once

#include <QEventLoop>
#include <QTimer>
#include <ctime>

namespace bench {

// Runs the event loop for `watched` ms; returns this process's CPU use during that time, in per cent of one
// core.
inline double coreShare(int watched) {
    QEventLoop loop;
    QTimer::singleShot(watched, &loop, &QEventLoop::quit);
    const std::clock_t before = std::clock();
    loop.exec();
    return static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC * 1000 / watched * 100;
}

} // namespace bench
