#pragma once

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>
#include <functional>

namespace fakes {

// Runs the event loop until the condition holds; false when it does not within ten seconds.
inline bool eventually(const std::function<bool()>& condition) {
    QEventLoop loop;
    QTimer look;
    const QDeadlineTimer end(10'000);
    QObject::connect(&look, &QTimer::timeout, [&] {
        if (condition() || end.hasExpired())
            loop.quit();
    });
    look.start(1);
    loop.exec();
    return condition();
}

} // namespace fakes
