#pragma once

#include "base/text.h"
#include "controls/controls.h"

#include <cstdint>
#include <deque>
#include <functional>

namespace safety {

// What happened without a message box: failures that a rule keeps silent, and work that was saved from being
// lost. The newest one stands on the quiet line for a while; the last fifty are kept for a list.
class Notices {
public:
    static constexpr std::size_t most = 50;

    struct Notice {
        std::int64_t time = 0; // seconds since 1970, UTC
        base::Text sentence;
    };

    // `now` gives the time, seconds since 1970.
    explicit Notices(std::function<std::int64_t()> now) : now_(std::move(now)) {}

    // Tells one sentence. The same one again within a minute is not told twice: a disk that is full refuses
    // every write. `concerned` is the window that it is about; null where it is about none in particular.
    void tell(base::TextView sentence, const controls::Window* concerned = nullptr);

    // The newest first.
    const std::deque<Notice>& all() const { return notices_; }

    // The newest one is to be shown now.
    std::function<void(const controls::Window* concerned)> Told = [](const controls::Window*) {};
    // The list has changed.
    std::function<void()> Listed = [] {};

private:
    std::function<std::int64_t()> now_;
    std::deque<Notice> notices_;
};

} // namespace safety
