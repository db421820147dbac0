#include "recorder/disk_flusher.h"

#include "base/carry_on.h"

#include <chrono>

namespace recorder {

namespace {

constexpr std::chrono::milliseconds pauseBetween{500};

} // namespace

DiskFlusher::DiskFlusher(base::BinaryFile& file)
    : file_(file), thread_([this](const std::stop_token& stop) { run(stop); }) {}

void DiskFlusher::wake() {
    const std::lock_guard lock(mutex_);
    written_ = true;
    changed_.notify_one();
}

void DiskFlusher::run(const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    while (changed_.wait(lock, stop, [this] { return written_; })) {
        written_ = false;
        lock.unlock();
        // If the disk is full or gone, the error is ignored; the next turn tries again.
        base::carryOn([this] { file_.sync(); });
        lock.lock();
        changed_.wait_for(lock, stop, pauseBetween, [] { return false; });
    }
}

} // namespace recorder
