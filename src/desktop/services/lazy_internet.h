#pragma once

#include "desktop/services/lazy_module.h"
#include "platform/internet.h"

namespace desktop {

// Internet access through a module that the first read loads: most runs need none, and its libraries would
// slow every start. If the module cannot be loaded, there is no internet access.
class LazyInternet : public platform::Internet {
public:
    // `module` is the path of the module, in UTF-8.
    explicit LazyInternet(std::string module) : module_(std::move(module), "quillmere_internet") {}

    std::string read(const std::string& address, const std::string& agent) override;

    // True while the system still waits on behalf of an abandoned read, such as for a name that no server
    // resolves. That may take minutes, during which the libraries would block the end of the process.
    bool isHanging() const { return hangs_ && hangs_(); }

private:
    LazyModule<platform::Internet> module_;
    bool (*hangs_)() = nullptr;
};

} // namespace desktop
