// Entry point of this module. It is loaded once the user has switched the desktop's media keys and panels on.
#include "mpris_controls.h"

// The caller owns the controls. Requires a QApplication.
extern "C" Q_DECL_EXPORT platform::MediaControls* quillmere_media_controls() {
    return new desktop::MprisControls;
}
