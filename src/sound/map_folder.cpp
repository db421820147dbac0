#include "sound/map_folder.h"

#include "base/carry_on.h"
#include "base/files.h"
#include "base/unfinished_file.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

namespace sound {

namespace {

namespace fs = std::filesystem;

struct File {
    fs::path path;
    fs::file_time_type used;
    std::uint64_t size = 0;
};

} // namespace

MapFolder::MapFolder(base::Text path, std::uint64_t most) : path_(std::move(path)), most_(most) {}

std::optional<SoundMap> MapFolder::find(const Recording& recording) const {
    std::optional<SoundMap> map;
    base::carryOn([&] {
        const base::Text path = path_ + base::pathSeparator + mapName(recording.path);
        map = unpacked(base::readFile(path), recording);
        if (!map)
            return base::removeFile(path);
        std::error_code ignored; // of a read-only folder, which makes no room either
        fs::last_write_time(base::toUtf8(path), fs::file_time_type::clock::now(), ignored);
    });
    return map;
}

void MapFolder::keep(const Recording& recording, const SoundMap& map) const {
    const std::string bytes = packed(recording, map);
    if (bytes.size() > most_)
        return;
    base::carryOn([&] {
        base::createPrivateFolder(path_);
        base::removeUnfinished(path_, [](base::TextView) { return false; });
        makeRoom(bytes.size());
        base::replacePrivateFile(path_ + base::pathSeparator + mapName(recording.path), bytes);
    });
}

void MapFolder::makeRoom(std::uint64_t bytes) const {
    std::vector<File> files;
    std::error_code ignored;
    std::uint64_t held = bytes;
    for (fs::directory_iterator entry(base::toUtf8(path_), ignored), end; !ignored && entry != end;
         entry.increment(ignored)) {
        std::error_code gone;
        const File file{entry->path(), entry->last_write_time(gone), entry->file_size(gone)};
        if (gone || file.path.extension() != ".map")
            continue;
        files.push_back(file);
        held += file.size;
    }
    std::ranges::sort(files, {}, &File::used);
    for (const File& file : files) {
        if (held <= most_)
            return;
        fs::remove(file.path, ignored);
        held -= file.size;
    }
}

} // namespace sound
