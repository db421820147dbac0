// The port to the event loop and its clock.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace platform {

// One repeating alarm of an event loop. Destroying it stops it, even from within its own callback.
class Alarm {
public:
    Alarm() = default;
    Alarm(const Alarm&) = delete;
    Alarm& operator=(const Alarm&) = delete;
    virtual ~Alarm() = default;

    // Calls back every `period` ms (above 0) from now on; restarts a running alarm. Calls that were missed
    // while the program was busy are combined into one.
    virtual void start(int period) = 0;
    virtual void stop() = 0;
};

// The program's only event loop. Alarms are called between events, never inside a handler, except while a
// handler shows something modal: the loop keeps running then.
class EventLoop {
public:
    virtual ~EventLoop() = default;
    virtual std::unique_ptr<Alarm> alarm(std::function<void()> call) = 0;
    // Milliseconds of a monotonic clock.
    virtual std::int64_t now() const = 0;
};

} // namespace platform
