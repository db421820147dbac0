// The port to the internet.
#pragma once

#include <string>

namespace platform {

// Reads from the web with the system's proxy and certificates, bypassing every cache.
class Internet {
public:
    Internet() = default;
    Internet(const Internet&) = delete;
    Internet& operator=(const Internet&) = delete;
    virtual ~Internet() = default;

    // The body of the answer from this address, whatever its HTTP status; `agent` is the user agent. A failed
    // read returns what had arrived, which is nothing if the connection failed. Blocks for 3 s at most. It
    // counts as failed after that time, after 64 KB, and at the second consecutive redirect.
    virtual std::string read(const std::string& address, const std::string& agent) = 0;
};

} // namespace platform
