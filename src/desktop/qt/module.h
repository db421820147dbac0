#pragma once

#include <dlfcn.h>
#include <string>

namespace desktop {

// A shared library beside the executable. It is never unloaded: the libraries behind it leave threads and
// exit handlers of their own.
class Module {
public:
    // Loads the file at this path; `failure` tells when that did not work.
    explicit Module(const std::string& path) : handle_(::dlopen(path.c_str(), RTLD_NOW)) {
        if (!handle_)
            failure_ = ::dlerror();
    }

    // The function of this name as a pointer of type Function; null when there is none.
    template <typename Function>
    Function function(const char* name) const {
        return handle_ ? reinterpret_cast<Function>(::dlsym(handle_, name)) : nullptr;
    }
    // The system's words; empty when it was loaded.
    const std::string& failure() const { return failure_; }

private:
    void* handle_;
    std::string failure_;
};

} // namespace desktop
