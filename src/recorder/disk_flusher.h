#pragma once

#include "base/binary_file.h"

#include <condition_variable>
#include <mutex>
#include <stop_token>
#include <thread>

namespace recorder {

// Brings what is written to a file to the disk, twice a second at most, on a thread of its own: a disk can be
// busy for longer than the sound may wait.
class DiskFlusher {
public:
    explicit DiskFlusher(base::BinaryFile& file);

    // Something was written; it is on its way to the disk within half a second.
    void wake();

private:
    void run(const std::stop_token& stop);

    base::BinaryFile& file_;
    std::mutex mutex_;
    std::condition_variable_any changed_;
    bool written_ = false;
    std::jthread thread_; // last: it ends before what it uses does
};

} // namespace recorder
