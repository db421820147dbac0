#include "recorder/wav_repair.h"

#include "base/binary_file.h"
#include "base/carry_on.h"
#include "base/files.h"
#include "base/numbers.h"
#include "recorder/wav_header.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>

namespace recorder {

namespace {

namespace fs = std::filesystem;

constexpr base::TextView extension = u".wav";
constexpr std::size_t sliceSize = std::size_t{4} << 20; // bytes

// The first 44 bytes of the file, or fewer if it is shorter.
std::string headOf(const std::string& path) {
    std::string head(headerSize, '\0');
    std::ifstream file(path, std::ios::binary);
    file.read(head.data(), static_cast<std::streamsize>(head.size()));
    head.resize(static_cast<std::size_t>(std::max<std::streamsize>(file.gcount(), 0)));
    return head;
}

// Candidate name number `n` of a copy, from 1. Always ends in ".wav".
base::Text copyName(base::TextView path, int n) {
    const std::size_t stem = path.size() - (hasSoundName(path) ? extension.size() : 0);
    base::Text name(path.substr(0, stem));
    name += u" repaired";
    if (n > 1)
        name += u' ' + base::numberText(n);
    return name + base::Text(stem < path.size() ? path.substr(stem) : extension);
}

// True if `copy` is the repaired copy of the file at `path`: same length, valid header sizes. A copy older
// than the file belongs to another recording that had this name before.
bool isCopyOf(base::TextView path, base::TextView copy) {
    const std::string damaged = base::toUtf8(path);
    const std::string whole = base::toUtf8(copy);
    std::error_code failed;
    const auto length = fs::file_size(whole, failed);
    if (failed || length != fs::file_size(damaged, failed) || failed)
        return false;
    const auto time = fs::last_write_time(whole, failed);
    if (failed || time < fs::last_write_time(damaged, failed) || failed)
        return false;
    const std::string head = headOf(whole);
    const std::string sizes = wavHeader({}, length);
    return head.substr(0, 8) == sizes.substr(0, 8) && head.substr(40) == sizes.substr(40);
}

// Copies the bytes in slices and flushes each one, so that cancelling never waits long for the disk.
void copyBytes(const std::string& from, const base::BinaryFile& to, const GoOn& goOn) {
    std::ifstream file(from, std::ios::binary);
    std::error_code failed;
    const auto length = fs::file_size(from, failed);
    if (!file || failed)
        throw base::systemFailure(failed ? failed.value() : errno);
    std::string slice(sliceSize, '\0');
    for (std::uint64_t position = 0; position < length;) {
        if (!goOn(static_cast<double>(position) / static_cast<double>(length)))
            throw base::systemFailure(ECANCELED);
        file.read(slice.data(), static_cast<std::streamsize>(slice.size()));
        const auto count = static_cast<std::size_t>(file.gcount());
        if (count == 0)
            throw base::systemFailure(EIO);
        to.writeAt(position, std::string_view(slice).substr(0, count));
        to.writeOut(position, count);
        position += count;
    }
}

} // namespace

bool hasSoundName(base::TextView path) {
    return base::lowered(path.substr(path.size() - std::min(path.size(), extension.size()))) == extension;
}

bool isCutOff(base::TextView path) {
    const std::string name = base::toUtf8(path);
    std::error_code failed;
    if (!fs::is_regular_file(name, failed) || fs::file_size(name, failed) <= headerSize || failed)
        return false;
    return headOf(name) == std::string(headerSize, '\0') && !base::BinaryFile::isHeld(path);
}

std::vector<base::Text> cutOffRecordings(base::TextView folder, const std::atomic_bool& stop) {
    std::vector<base::Text> found;
    std::error_code failed;
    for (fs::directory_iterator file(base::toUtf8(folder), failed), end; !failed && file != end && !stop;
         file.increment(failed)) {
        const base::Text path = base::fromUtf8(file->path().string());
        if (hasSoundName(path) && isCutOff(path))
            found.push_back(path);
    }
    std::sort(found.begin(), found.end());
    return found;
}

std::optional<base::Text> earlierRepair(base::TextView path) {
    for (int n = 1;; ++n) {
        const base::Text copy = copyName(path, n);
        if (!base::fileExists(copy))
            return std::nullopt;
        if (isCopyOf(path, copy))
            return copy;
    }
}

RepairedCopy repairCutOff(base::TextView path, const platform::WaveFormat& format, const GoOn& goOn) {
    if (auto earlier = earlierRepair(path))
        return {std::move(*earlier), false};
    int n = 1;
    while (base::fileExists(copyName(path, n)))
        ++n;
    const base::Text copy = copyName(path, n);
    // The unfinished copy does not have a WAV file's name, so that nobody mistakes it for a recording.
    const base::Text unfinished = base::createBeside(copy);
    try {
        const base::BinaryFile file(unfinished);
        copyBytes(base::toUtf8(path), file, goOn);
        file.writeAt(0, wavHeader(format, file.length()));
        file.sync();
        // The copy gets the recording's modification time, by which it is recognised later.
        std::error_code failed;
        fs::last_write_time(base::toUtf8(unfinished), fs::last_write_time(base::toUtf8(path), failed),
                            failed);
        fs::rename(base::toUtf8(unfinished), base::toUtf8(copy), failed);
        if (failed)
            throw base::systemFailure(failed.value());
    } catch (const base::Failure&) {
        base::carryOn([&] { base::removeFile(unfinished); });
        throw;
    }
    return {copy, true};
}

} // namespace recorder
