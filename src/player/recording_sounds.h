#pragma once

#include "base/text.h"
#include "platform/sound_adjustment.h"
#include "platform/worker.h"

#include <cstdint>
#include <vector>

namespace player {

// How the sound of each recording is adjusted: a file of lines
// "voice<TAB>channel<TAB>boost<TAB>length<TAB>name", the newest first. A recording is known by the name of
// its file, without the folder, and its length in ms.
class RecordingSounds {
public:
    static constexpr std::size_t most = 500; // recordings; the oldest is forgotten

    // Reads the file; one that cannot be read has no lines. Lines that make no sense are skipped.
    explicit RecordingSounds(base::Text path);

    // The adjustment of this recording; of the newest one with this name if its length is not known (0).
    platform::SoundAdjustment of(base::TextView name, std::int32_t length) const;
    // Remembers it, and writes the file by this worker. A failure keeps the old file until the next change.
    void set(base::TextView name, std::int32_t length, const platform::SoundAdjustment& sound,
             platform::Worker& disk);

private:
    struct Recording {
        base::Text name;
        std::int32_t length; // ms
        platform::SoundAdjustment sound;

        bool is(base::TextView otherName, std::int32_t otherLength) const;
    };

    void read(base::TextView line);
    void save(platform::Worker& disk) const;

    base::Text path_;
    std::vector<Recording> recordings_;
};

} // namespace player
