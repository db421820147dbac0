#pragma once

#include "base/text.h"
#include "controls/controls.h"
#include "lang/sentence.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <vector>

namespace safety {

// Notices that are shown without a message box: errors that a rule ignores, and work that was rescued. The
// quiet line shows the newest for a while; the last fifty are kept for a list.
class Notices {
public:
    static constexpr std::size_t most = 50;

    struct Notice : lang::Sentence {
        std::int64_t time = 0; // seconds since 1970, UTC
    };

    // `now` returns the time in seconds since 1970.
    explicit Notices(std::function<std::int64_t()> now) : now_(std::move(now)) {}

    // Adds one sentence with its parts. The same one within the last minute leaves the list: a full disk
    // fails every write. `concerned` is the window that it is about; null for none in particular.
    void tell(lang::English sentence, std::vector<base::Text> parts = {},
              const controls::Window* concerned = nullptr);

    // All notices, newest first.
    const std::deque<Notice>& all() const { return notices_; }

    // The newest notice should be shown now.
    std::function<void(const controls::Window* concerned)> Told = [](const controls::Window*) {};
    // The list has changed.
    std::function<void()> Listed = [] {};

private:
    std::function<std::int64_t()> now_;
    std::deque<Notice> notices_;
};

} // namespace safety
