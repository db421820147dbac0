#pragma once

#include "base/text.h"

#include <cstdint>
#include <string_view>

namespace base {

// A file that is open for writing at any place, and locked against a second writer of this program. Its bytes
// stand in the file when a call returns, so that they outlive the process; sync makes them outlive the
// system.
class BinaryFile {
public:
    // Opens the file, which is made when it is not there. Throws Failure in the system's words, also when
    // another one holds it open.
    explicit BinaryFile(TextView path);
    BinaryFile(const BinaryFile&) = delete;
    BinaryFile& operator=(const BinaryFile&) = delete;
    ~BinaryFile();

    // True while somebody holds this file open in the way of this class.
    static bool isHeld(TextView path);

    // Writes at `position`, counted from 0. Throws Failure; as much as could be written stands then.
    void writeAt(std::uint64_t position, std::string_view bytes) const;
    // Bytes. Throws Failure.
    std::uint64_t length() const;
    // Hands these bytes to the disk and waits for it, so that a later sync has little left. One that fails is
    // told by that sync.
    void writeOut(std::uint64_t position, std::uint64_t count) const;
    // Brings what was written to the disk; may take long, and may be called from any thread. Throws Failure.
    void sync() const;

private:
    int fd_;
};

} // namespace base
