#pragma once

#include "platform/internet.h"

#include <memory>

namespace desktop {

// The way to the internet, a module that is loaded by the first read: most starts need none, and its
// libraries would cost each of them. Where the module cannot be loaded there is no internet.
class LazyInternet : public platform::Internet {
public:
    // `module` is the path of the shared object, in UTF-8.
    explicit LazyInternet(std::string module) : module_(std::move(module)) {}

    std::string read(const std::string& address, const std::string& agent) override;

    // True while the system still waits for something that a read gave up, such as a name that no server
    // resolves. That may take minutes, and the libraries would hold up the end of the process for it.
    bool isHanging() const { return hangs_ && hangs_(); }

private:
    void load();

    std::string module_;
    std::unique_ptr<platform::Internet> reader_;
    bool (*hangs_)() = nullptr;
};

} // namespace desktop
