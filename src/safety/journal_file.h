#pragma once

#include "base/binary_file.h"
#include "base/text.h"
#include "safety/records.h"

#include <memory>
#include <string_view>
#include <vector>

namespace safety {

// The journal's file, as used by the disk thread: every call may block, and all calls come from one thread. A
// disk error throws base::Failure with the system's message and keeps the existing records.
class JournalFile {
public:
    // `path` is the file's path in an existing folder.
    explicit JournalFile(base::Text path) : path_(std::move(path)) {}

    // Replaces the file atomically: after a crash it holds the old records or the new ones.
    void begin(std::string_view records);
    // Appends the records and syncs them.
    void append(std::string_view records);
    // Deletes the file, or empties it if its folder is read-only: nothing is left to restore.
    void remove();
    // The intact records of the file; none if it cannot be read.
    std::vector<Record> records() const { return read(path_); }

    // The intact records of the file at `path`; none if it cannot be read.
    static std::vector<Record> read(base::TextView path);

private:
    base::BinaryFile& file();

    base::Text path_;
    std::unique_ptr<base::BinaryFile> file_;
    std::uint64_t end_ = 0; // length of the intact records in the file, in bytes
};

} // namespace safety
