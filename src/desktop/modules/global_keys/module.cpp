// Entry point of this module. It is loaded when keys from anywhere are switched on.
#include "x_global_keys.h"

#include <QtGlobal>

// The caller owns the keys. Requires a QGuiApplication.
extern "C" Q_DECL_EXPORT platform::GlobalKeys* quillmere_global_keys() {
    return new desktop::XGlobalKeys;
}
