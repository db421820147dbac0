#include "desktop/lazy_internet.h"

#include <QLoggingCategory>
#include <dlfcn.h>

namespace desktop {

std::string LazyInternet::read(const std::string& address, const std::string& agent) {
    if (!reader_)
        load();
    return reader_ ? reader_->read(address, agent) : std::string();
}

void LazyInternet::load() {
    using Make = platform::Internet* (*)();
    // Never unloaded: the libraries behind it leave threads of their own.
    void* const handle = ::dlopen(module_.c_str(), RTLD_NOW);
    if (!handle) {
        qCritical("The way to the internet could not be loaded: %s", ::dlerror());
        return;
    }
    if (const auto make = reinterpret_cast<Make>(::dlsym(handle, "quillmere_internet")))
        reader_.reset(make());
    hangs_ = reinterpret_cast<decltype(hangs_)>(::dlsym(handle, "quillmere_internet_hangs"));
}

} // namespace desktop
