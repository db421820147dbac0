#pragma once

#include "platform/printer.h"

class QPagedPaintDevice;

namespace desktop {

// The print target of this desktop: every PrintDevice here is of this class.
class QtPrintDevice : public platform::PrintDevice {
public:
    // Usable for one job: it begins with the first painter on the device and ends with that painter.
    virtual QPagedPaintDevice& paper() = 0;
    // Called after all pages are painted. Throws base::Failure, with the path, if the output file could not
    // be written.
    virtual void finish() = 0;

protected:
    ~QtPrintDevice() = default;
};

} // namespace desktop
