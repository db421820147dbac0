#include "base/files.h"

#include "base/carry_on.h"
#include "base/descriptor.h"
#include "base/unfinished_file.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace base {

namespace {

constexpr mode_t newFileMode = 0666; // the user's umask applies

[[noreturn]] void fail(const std::string& path) {
    throw Failure(std::generic_category().message(errno) + ": " + path);
}

// Resolves a symbolic link: the bytes go to the file that it points to.
std::string finalTarget(const std::string& path) {
    std::error_code ignored;
    const auto target = std::filesystem::canonical(path, ignored);
    return ignored ? path : target.string();
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
        fail(toUtf8(path));
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
    UnfinishedFile file(target, mode);
    if (!file.isOpen())
        fail(target);
    if (present)
        ::fchmod(file.descriptor(), mode);
    if (!file.write(bytes) || !file.putInPlace())
        fail(target);
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
