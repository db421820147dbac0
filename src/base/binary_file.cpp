#include "base/binary_file.h"

#include "base/failure.h"

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace base {

BinaryFile::BinaryFile(TextView path)
    : fd_(::open(toUtf8(path).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666)) {
    if (fd_ < 0)
        throw systemFailure(errno);
    // On a file system without locks the file is written unlocked.
    if (::flock(fd_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        ::close(fd_);
        throw systemFailure(EBUSY);
    }
}

BinaryFile::~BinaryFile() {
    ::close(fd_);
}

bool BinaryFile::isHeld(TextView path) {
    const int fd = ::open(toUtf8(path).c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return false;
    const bool held = ::flock(fd, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    ::close(fd);
    return held;
}

void BinaryFile::writeAt(std::uint64_t position, std::string_view bytes) const {
    while (!bytes.empty()) {
        const auto written = ::pwrite(fd_, bytes.data(), bytes.size(), static_cast<off_t>(position));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            throw systemFailure(written < 0 ? errno : ENOSPC);
        position += static_cast<std::uint64_t>(written);
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

std::uint64_t BinaryFile::length() const {
    struct stat about {};
    if (::fstat(fd_, &about) != 0)
        throw systemFailure(errno);
    return static_cast<std::uint64_t>(about.st_size);
}

void BinaryFile::writeOut(std::uint64_t position, std::uint64_t count) const {
    ::sync_file_range(fd_, static_cast<off_t>(position), static_cast<off_t>(count),
                      SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER);
}

void BinaryFile::sync() const {
    if (::fdatasync(fd_) != 0)
        throw systemFailure(errno);
}

} // namespace base
