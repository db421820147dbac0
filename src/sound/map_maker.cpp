#include "sound/map_maker.h"

#include <utility>

namespace sound {

void MapMaker::add(std::span<const std::int16_t> samples) {
    phrases_.add(samples);
    waveform_.add(samples);
}

void MapMaker::end() {
    waveform_.end();
    auto map = std::make_shared<SoundMap>();
    map->phrases = phrases_.find();
    map->waveform = std::move(waveform_);
    // A recording that has grown or was replaced meanwhile gets another map when it is opened again.
    if (Recording::at(recording_.path) == recording_)
        folder_.keep(recording_, *map);
    map_ = std::move(map);
}

} // namespace sound
