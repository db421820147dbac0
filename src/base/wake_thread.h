#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <stop_token>
#include <thread>

namespace base {

// Runs a function on a thread of its own whenever it is woken, for work that may wait for the disk. The
// destructor lets a run finish, and does one that is still due.
class WakeThread {
public:
    // `run` throws nothing. At least `pause` passes between two runs.
    explicit WakeThread(std::function<void()> run, std::chrono::milliseconds pause = {});

    // The function runs once more; calls before that run starts count as one.
    void wake();
    // Returns when no run is due or under way.
    void drain();

private:
    void work(const std::stop_token& stop);

    const std::function<void()> run_;
    const std::chrono::milliseconds pause_;
    std::mutex mutex_;
    std::condition_variable_any changed_;
    bool woken_ = false;
    bool running_ = false;
    std::jthread thread_; // last, so that it ends before the members that it uses
};

} // namespace base
