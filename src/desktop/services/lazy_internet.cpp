#include "desktop/services/lazy_internet.h"

#include "desktop/qt/module.h"

#include <QLoggingCategory>

namespace desktop {

std::string LazyInternet::read(const std::string& address, const std::string& agent) {
    if (!reader_)
        load();
    return reader_ ? reader_->read(address, agent) : std::string();
}

void LazyInternet::load() {
    using Make = platform::Internet* (*)();
    const Module library(module_);
    if (!library.failure().empty()) {
        qCritical("The way to the internet could not be loaded: %s", library.failure().c_str());
        return;
    }
    if (const auto make = library.function<Make>("quillmere_internet"))
        reader_.reset(make());
    hangs_ = library.function<decltype(hangs_)>("quillmere_internet_hangs");
}

} // namespace desktop
