// What the program asks of the internet.
#pragma once

#include <string>

namespace platform {

// Reads by the system's own proxy and certificates, never from a cache.
class Internet {
public:
    Internet() = default;
    Internet(const Internet&) = delete;
    Internet& operator=(const Internet&) = delete;
    virtual ~Internet() = default;

    // The bytes behind this address, whatever the server says of them; the program names itself `agent`
    // there. A read that fails gives what had come until then, nothing if the address could not be opened at
    // all. The call waits for the answer, but never more than 3 s for the whole of it: then, after 64 KB, and
    // at the second redirection in a row it ends as a read that fails.
    virtual std::string read(const std::string& address, const std::string& agent) = 0;
};

} // namespace platform
