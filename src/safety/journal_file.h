#pragma once

#include "base/binary_file.h"
#include "base/text.h"
#include "safety/records.h"

#include <memory>
#include <string_view>
#include <vector>

namespace safety {

// The file of the journal, on the side of the disk: every call may take long, and all come from one thread. A
// failure of the disk throws base::Failure in the system's words and leaves the records that were there.
class JournalFile {
public:
    // `path`: of the file, in a folder that is there.
    explicit JournalFile(base::Text path) : path_(std::move(path)) {}

    // Replaces the file by these records: the old ones or the new ones survive a crash, never half of them.
    void begin(std::string_view records);
    // Writes the records behind the others and syncs them.
    void append(std::string_view records);
    // Deletes the file: nothing is left to be brought back.
    void remove();

    // The intact records of the file at `path`; none when it cannot be read.
    static std::vector<Record> read(base::TextView path);

private:
    base::BinaryFile& file();

    base::Text path_;
    std::unique_ptr<base::BinaryFile> file_;
    std::uint64_t end_ = 0; // bytes of intact records in the file
};

} // namespace safety
