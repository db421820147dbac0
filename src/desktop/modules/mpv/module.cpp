// Entry points of this module. It is loaded when a player is first needed: libmpv pulls in some two hundred
// libraries, which would more than double the time until the first window appears.
#include "mpv_player.h"
#include "mpv_versions.h"

#include "base/failure.h"

// The caller owns the player; null if libmpv cannot be started. Requires a QApplication.
extern "C" Q_DECL_EXPORT platform::MediaPlayer* quillmere_media_player() {
    try {
        return new desktop::MpvPlayer({});
    } catch (const base::Failure&) {
        return nullptr;
    }
}

// The library versions, as mpvVersions() returns them.
extern "C" Q_DECL_EXPORT void quillmere_media_versions(std::string* versions) {
    *versions = desktop::mpvVersions();
}
