#pragma once

#include "platform/event_loop.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace fakes {

// An event loop in virtual time: advance(ms) makes all calls that become due, ordered by due time, then by
// start. A call may start, stop or destroy any alarm, or advance the loop itself, as a modal dialog does.
class VirtualLoop : public platform::EventLoop {
public:
    std::unique_ptr<platform::Alarm> alarm(std::function<void()> call) override {
        return std::make_unique<VirtualAlarm>(*this, std::move(call));
    }

    void advance(int ms) {
        const std::int64_t end = now_ + ms;
        while (true) {
            VirtualAlarm* next = nullptr;
            if (ended_)
                break;
            for (VirtualAlarm* const alarm : running_) {
                if (alarm->due <= end && (!next || alarm->due < next->due))
                    next = alarm;
            }
            if (!next)
                break;
            now_ = std::max(now_, next->due);
            next->due = now_ + next->period;
            const auto call = next->call; // a copy: the alarm may be destroyed during its own call
            call();
        }
        now_ = std::max(now_, end);
    }

    std::int64_t now() const override { return now_; }
    // From now on, no alarm is called until begin().
    void end() { ended_ = true; }
    void begin() { ended_ = false; }

private:
    struct VirtualAlarm : platform::Alarm {
        VirtualAlarm(VirtualLoop& owner, std::function<void()> toCall)
            : loop(owner), call(std::move(toCall)) {}
        ~VirtualAlarm() override { remove(); }
        void start(int ms) override {
            remove();
            period = ms;
            due = loop.now_ + ms;
            loop.running_.push_back(this);
        }
        void stop() override { remove(); }
        void remove() { std::erase(loop.running_, this); }

        VirtualLoop& loop;
        std::function<void()> call;
        int period = 0;
        std::int64_t due = 0;
    };

    std::vector<VirtualAlarm*> running_;
    std::int64_t now_ = 0;
    bool ended_ = false;
};

} // namespace fakes
