// Work that may wait for a disk, as the program asks it of a desktop.
#pragma once

#include <functional>

namespace platform {

// Does work in the order in which it was posted, on a thread of its own. A call of work reports its own
// failures; it throws nothing.
class Worker {
public:
    virtual ~Worker() = default;
    virtual void post(std::function<void()> work) = 0;
    // Returns when all that was posted before is done.
    virtual void drain() = 0;
};

} // namespace platform
