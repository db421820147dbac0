#pragma once

#include "base/binary_file.h"

#include <condition_variable>
#include <mutex>
#include <stop_token>
#include <thread>

namespace recorder {

// Flushes a growing file to the disk at most twice a second, on a thread of its own, because a disk can be
// busy for longer than the capture may wait.
class DiskFlusher {
public:
    explicit DiskFlusher(base::BinaryFile& file);

    // Called after a write; the bytes are flushed within half a second.
    void wake();

private:
    void run(const std::stop_token& stop);

    base::BinaryFile& file_;
    std::mutex mutex_;
    std::condition_variable_any changed_;
    bool written_ = false;
    std::jthread thread_; // last, so that it ends before the members that it uses
};

} // namespace recorder
