#include "safety/journal_file.h"

#include "base/carry_on.h"
#include "base/files.h"

#include <filesystem>
#include <string>
#include <system_error>

namespace safety {

base::BinaryFile& JournalFile::file() {
    if (!file_) {
        file_ = std::make_unique<base::BinaryFile>(path_);
        end_ = file_->length();
    }
    return *file_;
}

void JournalFile::begin(std::string_view records) {
    base::replacePrivateFile(path_, records);
    file_.reset();
}

// The next write overwrites the bytes of a write that failed half-way.
void JournalFile::append(std::string_view records) {
    base::BinaryFile& open = file();
    open.writeAt(end_, records);
    open.sync();
    end_ += records.size();
}

void JournalFile::remove() {
    file_.reset();
    try {
        base::removeFile(path_);
    } catch (const base::Failure&) {
        std::error_code failed;
        std::filesystem::resize_file(base::toUtf8(path_), 0, failed);
        if (failed)
            throw;
    }
}

std::vector<Record> JournalFile::read(base::TextView path) {
    std::string bytes;
    base::carryOn([&] { bytes = base::readFile(path); });
    return intactRecords(bytes);
}

} // namespace safety
