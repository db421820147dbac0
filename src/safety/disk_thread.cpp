#include "safety/disk_thread.h"

#include <utility>

namespace safety {

DiskThread::DiskThread() : thread_([this] { workOff(); }) {}

void DiskThread::post(std::function<void()> work) {
    {
        const std::lock_guard lock(mutex_);
        posted_.push_back(std::move(work));
    }
    thread_.wake();
}

void DiskThread::drain() {
    thread_.drain();
}

void DiskThread::workOff() {
    std::unique_lock lock(mutex_);
    while (!posted_.empty()) {
        const std::function<void()> work = std::move(posted_.front());
        posted_.pop_front();
        lock.unlock();
        work();
        lock.lock();
    }
}

} // namespace safety
