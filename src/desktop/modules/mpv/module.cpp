// The entries of this module. It is loaded when a player is first needed: libmpv brings some two hundred
// libraries along, which would more than double the time until the window is up.
#include "mpv_player.h"
#include "mpv_versions.h"

#include "base/carry_on.h"

// The caller owns the player; none when libmpv cannot be started. The Qt application has to exist.
extern "C" Q_DECL_EXPORT platform::MediaPlayer* quillmere_media_player() {
    try {
        return new desktop::MpvPlayer({});
    } catch (const base::Failure&) {
        return nullptr;
    }
}

// The versions of the libraries behind the player, as mpvVersions() gives them.
extern "C" Q_DECL_EXPORT void quillmere_media_versions(std::string* versions) {
    *versions = desktop::mpvVersions();
}
