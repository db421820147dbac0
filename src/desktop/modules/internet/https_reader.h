#pragma once

#include "platform/internet.h"

#include <chrono>

namespace desktop {

// Reads through Qt Network on a thread of its own: looking up the system's proxy and host names cannot be
// interrupted, so only another thread can enforce a time limit.
class HttpsReader : public platform::Internet {
public:
    static constexpr std::chrono::milliseconds wholeRead{3000};

    // `limit` applies to each read as a whole.
    explicit HttpsReader(std::chrono::milliseconds limit = wholeRead) : limit_(limit) {}

    std::string read(const std::string& address, const std::string& agent) override;

    // True if a read that timed out, or a look-up that it began, may still be running.
    static bool isHanging();

private:
    std::chrono::milliseconds limit_;
};

} // namespace desktop
