#pragma once

#include <stdexcept>

namespace base {

// The only exception that the rooms throw or expect: a port or a helper could not do its work. what() is
// UTF-8, the system's own message where there is one.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace base
