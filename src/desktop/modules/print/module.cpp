// Entry point of this module. It is loaded at the first print command.
#include "qt_printer.h"

// The caller owns the printer. Requires a QApplication.
extern "C" Q_DECL_EXPORT platform::Printer* quillmere_printer() {
    return new desktop::QtPrinter;
}
