// Entry point of this module. It is loaded when foot pedals are switched on.
#include "pedal_devices.h"

#include <QtGlobal>

// The caller owns the pedals. Requires a QCoreApplication.
extern "C" Q_DECL_EXPORT platform::Pedals* quillmere_pedals() {
    return new desktop::PedalDevices("/dev", "/sys");
}
