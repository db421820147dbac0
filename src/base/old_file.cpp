#include "base/old_file.h"

#include "base/descriptor.h"
#include "base/failure.h"

#include <cerrno>
#include <optional>
#include <sys/xattr.h>
#include <utility>

namespace base {

namespace {

constexpr const char* accessList = "system.posix_acl_access";

// The list that `get` reads; empty for a file without one, nullopt on failure.
template <typename Get>
std::optional<std::string> accessListBy(Get&& get) {
    const auto size = get(nullptr, 0);
    std::string list(size > 0 ? static_cast<std::size_t>(size) : 0, '\0');
    if ((size < 0 && errno != ENODATA && errno != ENOTSUP) ||
        (size > 0 && get(list.data(), list.size()) != size))
        return std::nullopt;
    return list;
}

bool takesAccessList(int fd, const std::string& path) {
    const auto wanted = accessListBy(
        [&](char* list, std::size_t size) { return ::getxattr(path.c_str(), accessList, list, size); });
    const auto held =
        accessListBy([&](char* list, std::size_t size) { return ::fgetxattr(fd, accessList, list, size); });
    if (!wanted || !held || *wanted == *held)
        return wanted && held;
    return (wanted->empty() ? ::fremovexattr(fd, accessList)
                            : ::fsetxattr(fd, accessList, wanted->data(), wanted->size(), 0)) == 0;
}

bool writeAll(int fd, std::string_view bytes) {
    off_t at = 0;
    for (std::string_view rest = bytes; !rest.empty();) {
        const auto written = ::pwrite(fd, rest.data(), rest.size(), at);
        if (written < 0 && errno != EINTR)
            return false;
        if (written > 0) {
            at += written;
            rest.remove_prefix(static_cast<std::size_t>(written));
        }
    }
    return ::ftruncate(fd, at) == 0 && ::fsync(fd) == 0;
}

// Allocates the disk space before anything is overwritten. True also if the file system cannot do that.
bool reserve(int fd, std::size_t bytes) {
    if (bytes == 0 || ::fallocate(fd, FALLOC_FL_KEEP_SIZE, 0, static_cast<off_t>(bytes)) == 0)
        return true;
    return errno != ENOSPC && errno != EDQUOT && errno != EIO && errno != EFBIG;
}

} // namespace

OldFile::OldFile(std::string path) : path_(std::move(path)) {
    if (::stat(path_.c_str(), &about_) != 0) {
        if (errno != ENOENT)
            throw systemFailure(errno, path_);
        return;
    }
    there_ = true;
    if (!S_ISREG(about_.st_mode))
        throw systemFailure(S_ISDIR(about_.st_mode) ? EISDIR : ENOTSUP, path_);
    if (::access(path_.c_str(), W_OK) != 0)
        throw systemFailure(errno, path_);
}

bool OldFile::handRightsTo(int fd) const {
    struct stat held {};
    if (::fstat(fd, &held) != 0)
        return false;
    if ((held.st_uid != about_.st_uid || held.st_gid != about_.st_gid) &&
        ::fchown(fd, about_.st_uid, about_.st_gid) != 0)
        return false;
    // May fail on file systems with fixed permissions; only the result counts.
    ::fchmod(fd, permissions());
    return takesAccessList(fd, path_) && ::fstat(fd, &held) == 0 && held.st_mode == about_.st_mode;
}

void OldFile::writeOver(std::string_view old, std::string_view bytes) const {
    const Descriptor file(path_, O_WRONLY);
    if (!file.isOpen())
        throw systemFailure(errno, path_);
    if (!reserve(file.get(), bytes.size())) {
        const int reason = errno;
        ::ftruncate(file.get(), static_cast<off_t>(old.size())); // releases what was allocated
        throw systemFailure(reason, path_);
    }
    if (writeAll(file.get(), bytes))
        return;
    const int reason = errno;
    writeAll(file.get(), old);
    throw systemFailure(reason, path_);
}

} // namespace base
