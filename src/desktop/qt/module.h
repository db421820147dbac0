#pragma once

#include <dlfcn.h>
#include <string>

namespace desktop {

// A loadable module beside the executable. It is never unloaded, because its libraries leave threads and exit
// handlers behind.
class Module {
public:
    // Loads the file at this path (UTF-8). Does not throw: failure() tells whether that worked.
    explicit Module(const std::string& path) : handle_(::dlopen(path.c_str(), RTLD_NOW)) {
        if (!handle_)
            failure_ = ::dlerror();
    }

    // The function of this name, as a pointer of type Function; null if there is none.
    template <typename Function>
    Function function(const char* name) const {
        return handle_ ? reinterpret_cast<Function>(::dlsym(handle_, name)) : nullptr;
    }
    // The system's error message; empty if the module is loaded.
    const std::string& failure() const { return failure_; }

private:
    void* handle_;
    std::string failure_;
};

} // namespace desktop
