#include "base/wake_thread.h"

#include <utility>

namespace base {

WakeThread::WakeThread(std::function<void()> run, std::chrono::milliseconds pause)
    : run_(std::move(run)), pause_(pause), thread_([this](const std::stop_token& stop) { work(stop); }) {}

void WakeThread::wake() {
    const std::lock_guard lock(mutex_);
    woken_ = true;
    changed_.notify_all();
}

void WakeThread::drain() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !woken_ && !running_; });
}

void WakeThread::work(const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    while (changed_.wait(lock, stop, [this] { return woken_; })) {
        woken_ = false;
        running_ = true;
        lock.unlock();
        run_();
        lock.lock();
        running_ = false;
        changed_.notify_all();
        if (pause_.count() > 0)
            changed_.wait_for(lock, stop, pause_, [] { return false; });
    }
}

} // namespace base
