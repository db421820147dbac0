#pragma once

#include "platform/decoder.h"
#include "sound/map_folder.h"
#include "sound/phrase_finder.h"

#include <memory>

namespace sound {

// Makes the map of a recording from its samples and keeps it in a folder, on the decoder's thread.
class MapMaker : public platform::SampleSink {
public:
    MapMaker(Recording recording, MapFolder folder)
        : recording_(std::move(recording)), folder_(std::move(folder)) {}

    void add(std::span<const std::int16_t> samples) override;
    void end() override;

    // The map, once the recording has ended; null before.
    std::shared_ptr<const SoundMap> map() const { return map_; }

private:
    const Recording recording_;
    const MapFolder folder_;
    PhraseFinder phrases_;
    Waveform waveform_;
    std::shared_ptr<const SoundMap> map_;
};

} // namespace sound
