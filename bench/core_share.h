#pragma once

#include <QEventLoop>
#include <QTimer>
#include <ctime>

namespace bench {

// The share of a core that this process takes in the next `watched` ms, in per cent. The event loop runs.
inline double coreShare(int watched) {
    QEventLoop loop;
    QTimer::singleShot(watched, &loop, &QEventLoop::quit);
    const std::clock_t before = std::clock();
    loop.exec();
    return static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC * 1000 / watched * 100;
}

} // namespace bench
