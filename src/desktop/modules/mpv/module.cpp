// The one entry of this module. It is loaded when a player is first needed: libmpv brings some two hundred
// libraries along, which would more than double the time until the window is up.
#include "mpv_player.h"

#include "base/carry_on.h"

// The caller owns the player; none when libmpv cannot be started. The Qt application has to exist.
extern "C" Q_DECL_EXPORT platform::MediaPlayer* quillmere_media_player() {
    try {
        return new desktop::MpvPlayer({});
    } catch (const base::Failure&) {
        return nullptr;
    }
}
