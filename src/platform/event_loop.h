// Time, as the program asks it of a desktop.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace platform {

// One alarm of an event loop. Destroying it stops it, also from within its own call.
class Alarm {
public:
    Alarm() = default;
    Alarm(const Alarm&) = delete;
    Alarm& operator=(const Alarm&) = delete;
    virtual ~Alarm() = default;

    // Calls every `period` ms (above 0) from now on; a running alarm begins anew. Calls that fell due while
    // the program was busy come once, not once each.
    virtual void start(int period) = 0;
    virtual void stop() = 0;
};

// The one loop of the program. Alarms are called between events, never inside a handler, but for a handler
// that shows something modal: the loop runs on meanwhile.
class EventLoop {
public:
    virtual ~EventLoop() = default;
    virtual std::unique_ptr<Alarm> alarm(std::function<void()> call) = 0;
    // Milliseconds on a clock that runs evenly from an unknown beginning.
    virtual std::int64_t now() const = 0;
};

} // namespace platform
