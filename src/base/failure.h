#pragma once

#include <stdexcept>
#include <string>
#include <system_error>

namespace base {

// The only exception that the rooms throw or expect: a port or a helper could not do its work. what() is
// UTF-8, the system's own message where there is one.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The system's message for an errno value.
inline Failure systemFailure(int reason) {
    return Failure(std::generic_category().message(reason));
}

// The same, followed by the path (UTF-8) of the file concerned.
inline Failure systemFailure(int reason, const std::string& path) {
    return Failure(std::generic_category().message(reason) + ": " + path);
}

} // namespace base
