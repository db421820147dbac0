#pragma once

#include "platform/printer.h"

#include <memory>
#include <string>

namespace desktop {

// The printers, by a module that is loaded when something is first printed: few starts of the program ever
// need it.
class PrintModule {
public:
    // `path` of the shared object, in UTF-8.
    explicit PrintModule(std::string path) : path_(std::move(path)) {}

    // Throws base::Failure in the system's words when the module cannot be loaded.
    platform::Printer& printer();

private:
    std::string path_;
    std::unique_ptr<platform::Printer> printer_;
};

} // namespace desktop
