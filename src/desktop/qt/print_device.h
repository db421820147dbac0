#pragma once

#include "platform/printer.h"

class QPagedPaintDevice;

namespace desktop {

// Where pages go on this desktop: what every PrintDevice here is.
class QtPrintDevice : public platform::PrintDevice {
public:
    // Takes pages once: a print job begins with the first painter on it and ends with that painter.
    virtual QPagedPaintDevice& paper() = 0;
    // All pages are painted. Throws base::Failure, with its path, when a file that is written instead of
    // paper could not be.
    virtual void finish() = 0;

protected:
    ~QtPrintDevice() = default;
};

} // namespace desktop
