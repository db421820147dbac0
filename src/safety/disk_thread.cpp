#include "safety/disk_thread.h"

#include <utility>

namespace safety {

DiskThread::DiskThread() : thread_([this](const std::stop_token& stop) { run(stop); }) {}

DiskThread::~DiskThread() {
    drain();
}

void DiskThread::post(std::function<void()> work) {
    const std::lock_guard lock(mutex_);
    posted_.push_back(std::move(work));
    changed_.notify_all();
}

void DiskThread::drain() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return posted_.empty() && !busy_; });
}

void DiskThread::run(const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    while (changed_.wait(lock, stop, [this] { return !posted_.empty(); })) {
        const std::function<void()> work = std::move(posted_.front());
        posted_.pop_front();
        busy_ = true;
        lock.unlock();
        work();
        lock.lock();
        busy_ = false;
        changed_.notify_all();
    }
}

} // namespace safety
