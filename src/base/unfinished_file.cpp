#include "base/unfinished_file.h"

#include "base/file_name.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <utility>

namespace base {

namespace {

constexpr std::string_view ending = ".quillmere-new";
constexpr std::string_view earlierEnding = ".new";

std::string folderOf(const std::string& path) {
    const auto folder = std::filesystem::path(path).parent_path();
    return folder.empty() ? "." : folder.string();
}

// Candidate name number `n`, from 1. If the name becomes too long for the file system, the target's name is
// cut at a character boundary.
std::string nameBeside(const std::string& target, int n) {
    const std::string addition = std::string(ending) + (n == 1 ? "" : std::to_string(n));
    const std::size_t nameAt = target.rfind('/') + 1;
    const std::string_view name = std::string_view(target).substr(nameAt);
    return target.substr(0, nameAt) + std::string(wholeLetters(name, longestFileName - addition.size())) +
           addition;
}

// The name without this ending and the number after it; empty if it does not have this ending.
std::string_view stemBefore(std::string_view end, std::string_view name) {
    const auto last = name.find_last_not_of("0123456789");
    name = name.substr(0, last == std::string_view::npos ? 0 : last + 1);
    return name.ends_with(end) ? name.substr(0, name.size() - end.size()) : std::string_view();
}

// Deletes a temporary file of ours that no process is writing. Returns false if it still exists.
bool removeLeftOver(const std::string& path) {
    const Descriptor file(path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
    struct stat opened {};
    struct stat named {};
    // Its writer may have renamed it between our open and our lock: then it is a complete file by now.
    return file.isOpen() && ::fstat(file.get(), &opened) == 0 && S_ISREG(opened.st_mode) &&
           ::flock(file.get(), LOCK_EX | LOCK_NB) == 0 && ::lstat(path.c_str(), &named) == 0 &&
           named.st_dev == opened.st_dev && named.st_ino == opened.st_ino && ::unlink(path.c_str()) == 0;
}

// Tries free names one after the other until `make` creates a file under one, and returns that name; empty if
// that is impossible, with errno set.
template <typename Make>
std::string firstFree(const std::string& target, Make&& make) {
    for (int n = 1; n < INT_MAX;) {
        std::string name = nameBeside(target, n);
        if (make(name.c_str()))
            return name;
        if (errno != EEXIST)
            return {};
        if (!removeLeftOver(name))
            ++n;
    }
    return {};
}

} // namespace

UnfinishedFile::UnfinishedFile(std::string target, mode_t mode, Seen seen)
    : target_(std::move(target)), mode_(mode) {
    if (seen == Seen::Never)
        file_.take(::open(folderOf(target_).c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, mode_));
    if (!isOpen())
        openNamed();
    if (isOpen())
        ::flock(file_.get(), LOCK_EX | LOCK_NB);
}

UnfinishedFile::~UnfinishedFile() {
    if (name_.empty())
        return;
    const int reason = errno;
    ::unlink(name_.c_str());
    errno = reason;
}

void UnfinishedFile::openNamed() {
    int fd = -1;
    name_ = firstFree(target_, [&](const char* name) {
        fd = ::open(name, O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode_);
        return fd >= 0;
    });
    file_.take(fd);
}

bool UnfinishedFile::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto written = ::write(file_.get(), bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            return false;
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool UnfinishedFile::putInPlace() {
    if (::fsync(file_.get()) != 0 || (name_.empty() && !giveName()))
        return false;
    // The file is still open and locked, so no other process deletes it as a left-over.
    if (::rename(name_.c_str(), target_.c_str()) != 0)
        return false;
    name_.clear();
    file_.close();
    return true;
}

bool UnfinishedFile::giveName() {
    const std::string byNumber = "/proc/self/fd/" + std::to_string(file_.get());
    name_ = firstFree(target_, [&](const char* name) {
        return ::linkat(AT_FDCWD, byNumber.c_str(), AT_FDCWD, name, AT_SYMLINK_FOLLOW) == 0;
    });
    return !name_.empty() || copyToNamed();
}

// On a file system where a file without a name can never get one, copies the bytes to a file with a name.
bool UnfinishedFile::copyToNamed() {
    const Descriptor unnamed(::dup(file_.get()));
    struct stat about {};
    if (!unnamed.isOpen() || ::fstat(unnamed.get(), &about) != 0)
        return false;
    openNamed();
    if (!isOpen())
        return false;
    ::flock(file_.get(), LOCK_EX | LOCK_NB);
    ::fchmod(file_.get(), about.st_mode & 07777U);
    std::string block(1U << 20U, '\0');
    for (off_t at = 0; at < about.st_size;) {
        const auto count = ::pread(unnamed.get(), block.data(), block.size(), at);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0 || !write(std::string_view(block).substr(0, static_cast<std::size_t>(count))))
            return false;
        at += count;
    }
    return ::fsync(file_.get()) == 0;
}

std::string UnfinishedFile::leave() {
    file_.close();
    return std::exchange(name_, {});
}

void removeUnfinished(TextView folder, const std::function<bool(TextView name)>& isOwn) {
    std::error_code failed;
    for (std::filesystem::directory_iterator file(toUtf8(folder), failed), end; !failed && file != end;
         file.increment(failed)) {
        const std::string name = file->path().filename().string();
        const std::string_view earlier = stemBefore(earlierEnding, name);
        if (!stemBefore(ending, name).empty() || (!earlier.empty() && isOwn(fromUtf8(earlier))))
            removeLeftOver(file->path().string());
    }
}

} // namespace base
