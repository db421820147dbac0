#pragma once

#include "platform/internet.h"

#include <chrono>

namespace desktop {

// Reads by Qt Network, on a thread of its own: asking the system for its proxy and for the address of a
// server cannot be interrupted, so that only somebody who waits beside it can keep to a limit.
class HttpsReader : public platform::Internet {
public:
    static constexpr std::chrono::milliseconds wholeRead{3000};

    // `limit` bounds each read as a whole.
    explicit HttpsReader(std::chrono::milliseconds limit = wholeRead) : limit_(limit) {}

    std::string read(const std::string& address, const std::string& agent) override;

    // True while a thread of a read that was given up still runs, or a look-up that it began.
    static bool isHanging();

private:
    std::chrono::milliseconds limit_;
};

} // namespace desktop
