#include "base/files.h"

#include "base/carry_on.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace base {

namespace {

constexpr int mostNamesBeside = 1000;
constexpr mode_t newFileMode = 0666; // less what the user masks

// An open file of the system, closed at the end of the block.
class Descriptor {
public:
    explicit Descriptor(int fd) : fd_(fd) {}
    Descriptor(const std::string& path, int flags) : fd_(::open(path.c_str(), flags | O_CLOEXEC)) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { close(); }

    bool isOpen() const { return fd_ >= 0; }
    int get() const { return fd_; }
    // False when the system reports only now that the bytes did not reach the disk.
    bool close() {
        const int fd = fd_;
        fd_ = -1;
        return fd < 0 || ::close(fd) == 0;
    }

private:
    int fd_;
};

[[noreturn]] void fail(const std::string& path) {
    throw Failure(std::generic_category().message(errno) + ": " + path);
}

bool writeAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto written = ::write(fd, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            return false;
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

// Where the bytes have to go: the file itself, or what a link at its name points to.
std::string finalTarget(const std::string& path) {
    std::error_code ignored;
    const auto target = std::filesystem::canonical(path, ignored);
    return ignored ? path : target.string();
}

// Name number `n`, from 1, of the bytes on their way. The longest names that a folder takes leave no room for
// an addition: they lose their end, whole letters of it.
std::string nameBeside(const std::string& target, int n) {
    const std::string addition = n == 1 ? ".new" : ".new" + std::to_string(n);
    const std::size_t nameAt = target.rfind('/') + 1;
    std::size_t length = std::min(target.size() - nameAt, std::size_t{NAME_MAX} - addition.size());
    const auto continuesLetter = [&](std::size_t at) {
        return (static_cast<unsigned char>(target[at]) & 0xC0U) == 0x80U;
    };
    while (nameAt + length < target.size() && length > 0 && continuesLetter(nameAt + length))
        --length;
    return target.substr(0, nameAt + length) + addition;
}

// Makes the file for the bytes on their way and tells its name; -1 when it cannot be made. A name that is
// taken is somebody's file, and left alone.
int openBeside(const std::string& target, mode_t mode, std::string& beside) {
    for (int n = 1;; ++n) {
        beside = nameBeside(target, n);
        const int fd = ::open(beside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (fd >= 0 || errno != EEXIST || n == mostNamesBeside)
            return fd;
    }
}

} // namespace

Text createBeside(TextView path) {
    std::string beside;
    const Descriptor file(openBeside(toUtf8(path), newFileMode, beside));
    if (!file.isOpen())
        fail(beside);
    return fromUtf8(beside);
}

bool fileExists(TextView path) {
    std::error_code ignored;
    const auto status = std::filesystem::status(toUtf8(path), ignored);
    return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

Text currentFolder() {
    std::error_code failed;
    const auto folder = std::filesystem::current_path(failed);
    if (failed)
        throw Failure(failed.message());
    return fromUtf8(folder.string());
}

void createFolder(TextView path) {
    std::error_code failed;
    std::filesystem::create_directory(toUtf8(path), failed);
    if (failed)
        throw Failure(failed.message());
}

void createPrivateFolder(TextView path) {
    createFolder(path);
    const std::string name = toUtf8(path);
    if (::chmod(name.c_str(), S_IRWXU) != 0)
        fail(name);
}

std::string readFile(TextView path) {
    const std::string name = toUtf8(path);
    const Descriptor file(name, O_RDONLY);
    if (!file.isOpen())
        fail(name);
    std::string bytes;
    struct stat about {};
    if (::fstat(file.get(), &about) == 0 && about.st_size > 0)
        bytes.reserve(static_cast<std::size_t>(about.st_size));
    char block[16384]; // NOLINT(modernize-avoid-c-arrays): a buffer for the system call, nothing else
    while (true) {
        const auto count = ::read(file.get(), block, sizeof block);
        if (count == 0)
            return bytes;
        if (count > 0)
            bytes.append(block, static_cast<std::size_t>(count));
        else if (errno != EINTR)
            fail(name);
    }
}

void replaceFile(TextView path, std::string_view bytes) {
    const std::string target = finalTarget(toUtf8(path));
    mode_t mode = newFileMode;
    struct stat about {};
    const bool present = ::stat(target.c_str(), &about) == 0;
    if (present) {
        if (S_ISDIR(about.st_mode)) {
            errno = EISDIR;
            fail(target);
        }
        if (::access(target.c_str(), W_OK) != 0)
            fail(target);
        mode = about.st_mode & 07777U;
    }
    std::string beside;
    Descriptor file(openBeside(target, mode, beside));
    if (!file.isOpen())
        fail(beside);
    if (present)
        ::fchmod(file.get(), mode);
    if (!writeAll(file.get(), bytes) || ::fsync(file.get()) != 0 || !file.close() ||
        ::rename(beside.c_str(), target.c_str()) != 0) {
        const int reason = errno;
        ::unlink(beside.c_str());
        errno = reason;
        fail(target);
    }
    const auto folder = std::filesystem::path(target).parent_path();
    const Descriptor directory(folder.empty() ? "." : folder.string(), O_RDONLY | O_DIRECTORY);
    if (directory.isOpen())
        ::fsync(directory.get());
}

void replacePrivateFile(TextView path, std::string_view bytes) {
    replaceFile(path, bytes);
    const std::string name = toUtf8(path);
    if (::chmod(name.c_str(), S_IRUSR | S_IWUSR) != 0)
        fail(name);
}

void removeFile(TextView path) {
    const std::string name = toUtf8(path);
    if (::unlink(name.c_str()) != 0 && errno != ENOENT)
        fail(name);
}

Text TextFiles::read(TextView path) const {
    return decodeFile(readFile(path), page_);
}

std::vector<Text> TextFiles::readLines(TextView path) const {
    const Text text = read(path);
    std::vector<Text> lines;
    for (std::size_t start = 0; start < text.size();) {
        const auto end = text.find_first_of(u"\r\n", start);
        lines.push_back(text.substr(start, end == Text::npos ? end : end - start));
        if (end == Text::npos)
            break;
        start = end + (text.compare(end, 2, u"\r\n") == 0 ? 2 : 1);
    }
    return lines;
}

void TextFiles::writeLines(TextView path, const std::vector<Text>& lines) const {
    Text text;
    for (const Text& line : lines)
        text += line + u"\r\n";
    replaceFile(path, encodeFile(text, page_));
}

} // namespace base
