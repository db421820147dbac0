// The file of a sound map. Numbers are little-endian:
//   "QMSOUND1"  magic and version
//   u64         checksum of all that follows (FNV-1a)
//   u64, i64    size in bytes and time of the last change (ns) of the recording
//   u32, bytes  length of its path, and the path in UTF-8
//   u32, {i32 begin, i32 end}   phrases
//   u32, {i32 at, u8 depth}     gaps
//   u32, {u8 most, u8 average}  columns of the waveform's level 0
#pragma once

#include "base/text.h"
#include "sound/sound_map.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace sound {

// Which recording a map belongs to. A recording that has changed is another one.
struct Recording {
    base::Text path;
    std::uint64_t size = 0;   // bytes
    std::int64_t changed = 0; // ns since 1970

    // The recording at this path; nothing if there is none.
    static std::optional<Recording> at(const base::Text& path);

    bool operator==(const Recording&) const = default;
};

// The name of its file: the same for all versions of a recording.
base::Text mapName(const base::Text& recordingPath);

std::string packed(const Recording& recording, const SoundMap& map);

// Nothing if the bytes are damaged, of another version, or the map of another recording.
std::optional<SoundMap> unpacked(std::string_view bytes, const Recording& recording);

} // namespace sound
