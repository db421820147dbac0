#include "desktop/print_module.h"

#include "base/carry_on.h"

#include <QLoggingCategory>
#include <dlfcn.h>

namespace desktop {

platform::Printer& PrintModule::printer() {
    if (printer_)
        return *printer_;
    using Make = platform::Printer* (*)();
    // Never unloaded: Qt keeps what the libraries behind it have registered.
    void* const handle = ::dlopen(path_.c_str(), RTLD_NOW);
    void* const entry = handle ? ::dlsym(handle, "quillmere_printer") : nullptr;
    if (!entry) {
        const std::string reason = ::dlerror();
        qCritical("Printing could not be loaded: %s", reason.c_str());
        throw base::Failure(reason);
    }
    printer_.reset(reinterpret_cast<Make>(entry)());
    return *printer_;
}

} // namespace desktop
