#pragma once

#include "base/text.h"

#include <cstdint>
#include <string_view>

namespace base {

// A file open for random-access writing, locked against a second writer of this program. After a call
// returns, its bytes survive the end of the process; after sync they survive a crash of the system.
class BinaryFile {
public:
    // Opens the file; creates it if it does not exist. Throws Failure with the system's message, also if
    // another BinaryFile holds it open.
    explicit BinaryFile(TextView path);
    BinaryFile(const BinaryFile&) = delete;
    BinaryFile& operator=(const BinaryFile&) = delete;
    ~BinaryFile();

    // True while any process holds this file open through a BinaryFile.
    static bool isHeld(TextView path);

    // Writes at byte `position`. Throws Failure; a part of the bytes may have been written then.
    void writeAt(std::uint64_t position, std::string_view bytes) const;
    // In bytes. Throws Failure.
    std::uint64_t length() const;
    // Starts writing these bytes to the disk and waits for it, which makes a later sync short. Errors are
    // reported by that sync.
    void writeOut(std::uint64_t position, std::uint64_t count) const;
    // Flushes everything written to the disk. May block for long; may be called from any thread. Throws
    // Failure.
    void sync() const;

private:
    int fd_;
};

} // namespace base
