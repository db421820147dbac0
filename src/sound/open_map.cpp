#include "sound/open_map.h"

#include <utility>

namespace sound {

OpenMap::OpenMap(platform::Decoder& decoder, MapFolder folder)
    : decoder_(decoder), folder_(std::move(folder)) {
    decoder_.Progress = [this](double seconds) {
        madeUpTo_ = seconds;
        Changed();
    };
    decoder_.Finished = [this](const base::Text& failure) { finish(failure); };
}

OpenMap::~OpenMap() {
    decoder_.cancel();
}

void OpenMap::want(const base::Text& recording) {
    if (recording == recording_)
        return;
    recording_ = recording;
    if (std::exchange(maker_, nullptr))
        decoder_.cancel();
    map_.reset();
    madeUpTo_ = 0;
    if (const auto found = recording_.empty() ? std::nullopt : Recording::at(recording_)) {
        if (auto kept = folder_.find(*found)) {
            map_ = std::make_shared<const SoundMap>(std::move(*kept));
        } else {
            maker_ = std::make_shared<MapMaker>(*found, folder_);
            decoder_.listen(recording_, maker_);
        }
    }
    Changed();
}

// Without a map, everything stays as it is without this addition.
void OpenMap::finish(const base::Text& failure) {
    const std::shared_ptr<MapMaker> maker = std::exchange(maker_, nullptr);
    if (maker && failure.empty())
        map_ = maker->map();
    Changed();
}

} // namespace sound
