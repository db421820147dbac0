// The one entry of this module. It is loaded at the first print command.
#include "qt_printer.h"

// The caller owns the printer. The Qt application has to exist.
extern "C" Q_DECL_EXPORT platform::Printer* quillmere_printer() {
    return new desktop::QtPrinter;
}
