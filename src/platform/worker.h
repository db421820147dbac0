// The port to a background thread.
#pragma once

#include <functional>

namespace platform {

// Runs work on its own thread, in the order in which it was posted. Work reports its errors itself and never
// throws.
class Worker {
public:
    virtual ~Worker() = default;
    virtual void post(std::function<void()> work) = 0;
    // Returns when all work posted so far is done.
    virtual void drain() = 0;
};

} // namespace platform
