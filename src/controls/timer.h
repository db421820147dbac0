#pragma once

#include "platform/event_loop.h"

#include <functional>
#include <memory>

namespace controls {

// A timer of a window. It ticks every `interval` ms while it is enabled and the interval is not 0.
class Timer {
public:
    explicit Timer(platform::EventLoop& loop) : alarm_(loop.alarm([this] { Tick(); })) {}

    int interval() const { return interval_; }
    bool enabled() const { return enabled_; }

    // Sets the period in ms; 0 stops. Restarts the count even if the period is unchanged: extending a timeout
    // relies on that.
    void setInterval(int period) {
        interval_ = period;
        apply();
    }
    void setEnabled(bool on) {
        if (on == enabled_)
            return;
        enabled_ = on;
        apply();
    }

    std::function<void()> Tick = [] {};

private:
    void apply() {
        if (enabled_ && interval_ > 0)
            alarm_->start(interval_);
        else
            alarm_->stop();
    }

    int interval_ = 0;
    bool enabled_ = true;
    std::unique_ptr<platform::Alarm> alarm_;
};

} // namespace controls
