#pragma once

#include "sound/map_file.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace sound {

// Keeps the maps of the last recordings as files of a folder that never holds more than `most` bytes: the
// maps that were not used for longest go first. Any map may be lost, it is made again.
class MapFolder {
public:
    static constexpr std::uint64_t usual = std::uint64_t{64} * 1024 * 1024; // bytes

    explicit MapFolder(base::Text path, std::uint64_t most = usual);

    // The map of this recording, if the folder has it and it is not damaged.
    std::optional<SoundMap> find(const Recording& recording) const;
    // Keeps the map. Does nothing if the disk refuses, except that a part of the old maps may be gone. May be
    // called from any thread.
    void keep(const Recording& recording, const SoundMap& map) const;

private:
    void makeRoom(std::uint64_t bytes) const;

    base::Text path_;
    std::uint64_t most_;
};

} // namespace sound
