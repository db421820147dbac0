#include "desktop/services/print_module.h"

#include "base/failure.h"
#include "desktop/qt/module.h"

#include <QLoggingCategory>

namespace desktop {

platform::Printer& PrintModule::printer() {
    if (printer_)
        return *printer_;
    using Make = platform::Printer* (*)();
    const Module library(path_);
    const auto make = library.function<Make>("quillmere_printer");
    if (!make) {
        const std::string reason = library.failure().empty() ? ::dlerror() : library.failure();
        qCritical("Printing could not be loaded: %s", reason.c_str());
        throw base::Failure(reason);
    }
    printer_.reset(make());
    return *printer_;
}

} // namespace desktop
