#pragma once

#include "platform/event_loop.h"

namespace desktop {

// The program's timers on Qt's event loop, exact to the millisecond: a phase of dictation lasts what was
// asked for.
class QtEventLoop : public platform::EventLoop {
public:
    std::unique_ptr<platform::Alarm> alarm(std::function<void()> call) override;
    std::int64_t now() const override;
};

} // namespace desktop
