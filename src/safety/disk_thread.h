#pragma once

#include "platform/worker.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <stop_token>
#include <thread>

namespace safety {

// The thread that writes and syncs the safety net's files, because a disk can be busy for longer than a key
// press may wait. The destructor finishes all posted work.
class DiskThread : public platform::Worker {
public:
    DiskThread();
    ~DiskThread() override;

    void post(std::function<void()> work) override;
    void drain() override;

private:
    void run(const std::stop_token& stop);

    std::mutex mutex_;
    std::condition_variable_any changed_;
    std::deque<std::function<void()>> posted_;
    bool busy_ = false;
    std::jthread thread_; // last, so that it ends before the members that it uses
};

} // namespace safety
