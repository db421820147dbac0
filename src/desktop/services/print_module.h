#pragma once

#include "platform/printer.h"

#include <memory>
#include <string>

namespace desktop {

// Access to printers, through a module that is loaded when something is first printed: most runs never need
// it.
class PrintModule {
public:
    // `path` of the module, in UTF-8.
    explicit PrintModule(std::string path) : path_(std::move(path)) {}

    // Throws base::Failure with the system's error message if the module cannot be loaded.
    platform::Printer& printer();

private:
    std::string path_;
    std::unique_ptr<platform::Printer> printer_;
};

} // namespace desktop
