#pragma once

#include "platform/decoder.h"
#include "sound/map_folder.h"
#include "sound/map_maker.h"

#include <functional>
#include <memory>

namespace sound {

// The map of the open recording: read from the folder, or made in the background.
class OpenMap {
public:
    OpenMap(platform::Decoder& decoder, MapFolder folder);
    ~OpenMap();
    OpenMap(const OpenMap&) = delete;
    OpenMap& operator=(const OpenMap&) = delete;

    // The recording at this path is open and its map is wanted; an empty path: none. Cheap if nothing has
    // changed. The map of another recording is no longer made.
    void want(const base::Text& recording);

    // The map of the recording; null while there is none.
    const std::shared_ptr<const SoundMap>& map() const { return map_; }
    // True while it is made.
    bool isMaking() const { return maker_ != nullptr; }
    // Up to where, in seconds.
    double madeUpTo() const { return madeUpTo_; }

    // The map is there, or is gone, or cannot be made, or a part more of it is made.
    std::function<void()> Changed = [] {};

private:
    void finish(const base::Text& failure);

    platform::Decoder& decoder_;
    const MapFolder folder_;
    base::Text recording_;
    double madeUpTo_ = 0;
    std::shared_ptr<MapMaker> maker_; // while it works
    std::shared_ptr<const SoundMap> map_;
};

} // namespace sound
