#pragma once

#include "platform/media_player.h"

namespace player {

// The player's position as "[hh:mm:ss] "; empty for a position too long for that.
inline base::Text stampText(const platform::MediaPlayer& player) {
    constexpr base::TextView noTime = u"00:00:00";
    const base::Text time = player.currentPositionString();
    if (time.size() > noTime.size())
        return {};
    return u"[" + base::Text(noTime.substr(0, noTime.size() - time.size())) + time + u"] ";
}

} // namespace player
