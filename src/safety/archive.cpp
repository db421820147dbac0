#include "safety/archive.h"

#include "base/carry_on.h"
#include "base/file_name.h"
#include "base/files.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <filesystem>
#include <optional>
#include <set>
#include <system_error>
#include <tuple>
#include <utility>

namespace safety {

namespace {

constexpr std::array<std::pair<Reason, std::string_view>, 9> reasonNames{
    {{Reason::Exit, "exit"},
     {Reason::Replaced, "replaced"},
     {Reason::SaveFailed, "save failed"},
     {Reason::Overwritten, "overwritten"},
     {Reason::InPlace, "written over"},
     {Reason::Structure, "structure"},
     {Reason::Marks, "bookmarks"},
     {Reason::Changed, "changed elsewhere"},
     {Reason::Crash, "crash"}}};

constexpr std::string_view timeForm =
    "%Y-%m-%d %H.%M.%S"; // local time, without characters that file names reject
constexpr std::size_t timeLength = 19;
constexpr std::size_t longestName = 120; // bytes of the document's name in a version's file name

std::string timeInName(std::int64_t seconds) {
    const auto time = static_cast<std::time_t>(seconds);
    std::tm parts{};
    ::localtime_r(&time, &parts);
    std::array<char, timeLength + 1> text{};
    std::strftime(text.data(), text.size(), timeForm.data(), &parts);
    return text.data();
}

std::optional<std::int64_t> timeOf(const std::string& text) {
    std::tm parts{};
    const char* const end = ::strptime(text.c_str(), timeForm.data(), &parts);
    if (!end || *end != '\0')
        return std::nullopt;
    parts.tm_isdst = -1;
    return std::mktime(&parts);
}

// The document's name, shortened to fit into a version's file name.
std::string shortened(base::TextView document) {
    std::string name = base::toUtf8(document);
    std::replace(name.begin(), name.end(), '/', '_');
    return base::shortenedName(name, longestName);
}

std::optional<Version> versionOf(const std::filesystem::directory_entry& entry) {
    const std::string stem = entry.path().stem().string();
    const auto open = stem.rfind(" [");
    if (stem.empty() || stem.back() != ']' || open == std::string::npos || open < timeLength + 1)
        return std::nullopt;
    const std::string reason = stem.substr(open + 2, stem.size() - open - 3);
    // A second version within the same second has a number after the reason.
    const auto* const known = std::find_if(reasonNames.begin(), reasonNames.end(), [&](const auto& each) {
        return reason == each.second || reason.starts_with(std::string(each.second) + " ");
    });
    const auto time = timeOf(stem.substr(open - timeLength, timeLength));
    std::error_code failed;
    const auto size = entry.file_size(failed);
    if (known == reasonNames.end() || !time || failed)
        return std::nullopt;
    const std::string extension = entry.path().extension().string();
    return Version{base::fromUtf8(entry.path().string()),
                   base::fromUtf8(stem.substr(0, open - timeLength - 1)),
                   base::fromUtf8(extension.empty() ? extension : extension.substr(1)),
                   *time,
                   size,
                   known->first};
}

} // namespace

std::vector<Version> Archive::versions() const {
    std::vector<Version> all;
    std::error_code failed;
    for (const auto& entry : std::filesystem::directory_iterator(base::toUtf8(folder_), failed)) {
        if (auto version = versionOf(entry))
            all.push_back(std::move(*version));
    }
    std::sort(all.begin(), all.end(), [](const Version& a, const Version& b) {
        return std::tie(b.time, b.path) < std::tie(a.time, a.path);
    });
    return all;
}

bool Archive::holds(base::TextView document, std::string_view bytes) const {
    const base::Text name = base::fromUtf8(shortened(document));
    const std::vector<Version> all = versions();
    return std::any_of(all.begin(), all.end(), [&](const Version& version) {
        std::string held;
        return version.document == name && version.size == bytes.size() &&
               base::carryOn([&] { held = base::readFile(version.path); }) && held == bytes;
    });
}

void Archive::setLimits(int days, int megabytes) {
    limits_.age = days * std::int64_t{24 * 60 * 60};
    limits_.size = static_cast<std::uint64_t>(megabytes) * 1'000'000;
}

base::Text Archive::keep(base::TextView document, std::string_view bytes, base::TextView extension,
                         Reason reason, std::int64_t now) {
    if (holds(document, bytes))
        return {};
    base::createPrivateFolder(folder_);
    const auto* const name = std::find_if(reasonNames.begin(), reasonNames.end(),
                                          [&](const auto& each) { return each.first == reason; });
    const std::string start = base::toUtf8(folder_) + "/" + shortened(document) + " " + timeInName(now) +
                              " [" + std::string(name->second);
    const std::string end = "]." + base::toUtf8(extension);
    base::Text path = base::fromUtf8(start + end);
    for (int n = 2; base::fileExists(path); ++n)
        path = base::fromUtf8(start + " " + std::to_string(n) + end);
    base::replacePrivateFile(path, bytes);
    prune(now);
    return path;
}

void Archive::prune(std::int64_t now) {
    std::vector<Version> all = versions();
    std::uint64_t size = 0;
    for (const Version& version : all)
        size += version.size;
    std::set<base::Text> seen;
    std::vector<const Version*> spare; // all but the newest version of each document, the newest first
    for (const Version& version : all) {
        if (!seen.insert(version.document).second)
            spare.push_back(&version);
    }
    for (auto oldest = spare.rbegin(); oldest != spare.rend(); ++oldest) {
        if (size <= limits_.size && now - (*oldest)->time <= limits_.age)
            break;
        // If it cannot be deleted, the next call of keep tries again.
        if (base::carryOn([&] { base::removeFile((*oldest)->path); }))
            size -= (*oldest)->size;
    }
}

void Archive::removeAll() {
    for (const Version& version : versions())
        base::removeFile(version.path);
}

} // namespace safety
