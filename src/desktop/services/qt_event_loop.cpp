#include "desktop/services/qt_event_loop.h"

#include <QTimer>
#include <chrono>

namespace desktop {

namespace {

class QtAlarm : public platform::Alarm {
public:
    explicit QtAlarm(std::function<void()> call) {
        timer_.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer_, &QTimer::timeout, &timer_, std::move(call));
    }
    void start(int period) override { timer_.start(period); }
    void stop() override { timer_.stop(); }

private:
    QTimer timer_;
};

} // namespace

std::unique_ptr<platform::Alarm> QtEventLoop::alarm(std::function<void()> call) {
    return std::make_unique<QtAlarm>(std::move(call));
}

std::int64_t QtEventLoop::now() const {
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

} // namespace desktop
