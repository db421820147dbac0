#pragma once

#include "platform/event_loop.h"

namespace desktop {

// Timers on Qt's event loop, precise to the millisecond, because the phases of dictation need exact lengths.
class QtEventLoop : public platform::EventLoop {
public:
    std::unique_ptr<platform::Alarm> alarm(std::function<void()> call) override;
    std::int64_t now() const override;
};

} // namespace desktop
