#pragma once

#include "base/wake_thread.h"
#include "platform/worker.h"

#include <deque>
#include <functional>
#include <mutex>

namespace safety {

// The thread that writes and syncs the safety net's files, because a disk can be busy for longer than a key
// press may wait. The destructor finishes all posted work.
class DiskThread : public platform::Worker {
public:
    DiskThread();

    void post(std::function<void()> work) override;
    void drain() override;

private:
    void workOff();

    std::mutex mutex_;
    std::deque<std::function<void()>> posted_;
    base::WakeThread thread_; // last, so that it ends before the members that it uses
};

} // namespace safety
