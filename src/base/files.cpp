#include "base/files.h"

#include "base/carry_on.h"
#include "base/descriptor.h"
#include "base/failure.h"
#include "base/old_file.h"
#include "base/unfinished_file.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace base {

namespace {

constexpr mode_t newFileMode = 0666; // the user's umask applies

// Resolves symbolic links: the bytes go to the file that they point to, which need not exist.
std::string finalTarget(std::string path) {
    constexpr int mostLinks = 40; // the system follows no more either
    for (int links = 0; links < mostLinks; ++links) {
        std::error_code none;
        const auto to = std::filesystem::read_symlink(path, none);
        if (none)
            break;
        path = (std::filesystem::path(path).parent_path() / to).string();
    }
    return path;
}

// True if the error means that no file can be created in the folder, or that none can be renamed over this
// one, for instance a bind mount.
bool refusesNeighbours(int reason) {
    return reason == EACCES || reason == EPERM || reason == EROFS || reason == EBUSY || reason == EXDEV;
}

void syncFolder(const std::string& target) {
    const auto folder = std::filesystem::path(target).parent_path();
    const Descriptor directory(folder.empty() ? "." : folder.string(), O_RDONLY | O_DIRECTORY);
    if (directory.isOpen())
        ::fsync(directory.get());
}

bool putInPlace(UnfinishedFile& file, std::string_view bytes, const std::string& target) {
    if (!file.isOpen() || !file.write(bytes) || !file.putInPlace())
        return false;
    syncFolder(target);
    return true;
}

// False if the file has to be written in place instead.
bool replacedBeside(const OldFile& old, const std::string& target, std::string_view bytes) {
    if (old.hasOtherNames())
        return false;
    UnfinishedFile file(target, old.permissions());
    if (file.isOpen() && !old.handRightsTo(file.descriptor()))
        return false;
    if (putInPlace(file, bytes, target))
        return true;
    if (!refusesNeighbours(errno))
        throw systemFailure(errno, target);
    return false;
}

KeepOld& keepOld() {
    static KeepOld keep;
    return keep;
}

std::string bytesOf(const std::vector<Text>& lines) {
    Text text;
    for (const Text& line : lines)
        text += oneLine(line) + u"\r\n";
    return encodeFile(text);
}

} // namespace

Text createBeside(TextView path) {
    UnfinishedFile file(toUtf8(path), newFileMode, UnfinishedFile::Seen::Always);
    if (!file.isOpen())
        throw systemFailure(errno, toUtf8(path));
    return fromUtf8(file.leave());
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
    const std::string name = toUtf8(path);
    if (::mkdir(name.c_str(), S_IRWXU) == 0)
        return;
    createFolder(path);
    if (::chmod(name.c_str(), S_IRWXU) != 0)
        throw systemFailure(errno, name);
}

std::string readFile(TextView path) {
    const std::string name = toUtf8(path);
    const Descriptor file(name, O_RDONLY);
    if (!file.isOpen())
        throw systemFailure(errno, name);
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
            throw systemFailure(errno, name);
    }
}

void replaceFile(TextView path, std::string_view bytes) {
    const std::string target = finalTarget(toUtf8(path));
    const OldFile old(target);
    if (!old.isThere()) {
        UnfinishedFile file(target, newFileMode);
        if (!putInPlace(file, bytes, target))
            throw systemFailure(errno, target);
        return;
    }
    if (replacedBeside(old, target, bytes))
        return;
    if (!keepOld()) {
        errno = EPERM;
        throw systemFailure(errno, target);
    }
    const std::string held = readFile(fromUtf8(target));
    keepOld()(path, held, [&] { old.writeOver(held, bytes); });
}

void replacePrivateFile(TextView path, std::string_view bytes) {
    const std::string target = finalTarget(toUtf8(path));
    UnfinishedFile file(target, S_IRUSR | S_IWUSR);
    if (!putInPlace(file, bytes, target))
        throw systemFailure(errno, target);
}

void checkWritable(TextView path) {
    const std::string target = finalTarget(toUtf8(path));
    if (OldFile(target).isThere())
        return;
    const Descriptor file(::open(target.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, newFileMode));
    if (!file.isOpen() || ::unlink(target.c_str()) != 0)
        throw systemFailure(errno, target);
}

void setKeepOld(KeepOld keep) {
    keepOld() = std::move(keep);
}

void removeFile(TextView path) {
    const std::string name = toUtf8(path);
    if (::unlink(name.c_str()) != 0 && errno != ENOENT)
        throw systemFailure(errno, name);
}

Text TextFiles::read(TextView path) const {
    return decodeFile(readFile(path), page_);
}

std::vector<Text> TextFiles::readLines(TextView path) const {
    const Text text = read(path);
    std::vector<Text> lines;
    for (std::size_t start = 0; start < text.size();) {
        const auto end = text.find_first_of(u"\r\n", start);
        lines.push_back(fromOneLine(TextView(text).substr(start, end == Text::npos ? end : end - start)));
        if (end == Text::npos)
            break;
        start = end + (text.compare(end, 2, u"\r\n") == 0 ? 2 : 1);
    }
    return lines;
}

void TextFiles::writeLines(TextView path, const std::vector<Text>& lines) const {
    replaceFile(path, bytesOf(lines));
}

void TextFiles::writeChangedLines(TextView path, const std::vector<Text>& lines) const {
    const std::string bytes = bytesOf(lines);
    std::string present;
    if (!carryOn([&] { present = readFile(path); }) || present != bytes)
        replaceFile(path, bytes);
}

} // namespace base
