#include "desktop/services/lazy_internet.h"

namespace desktop {

std::string LazyInternet::read(const std::string& address, const std::string& agent) {
    platform::Internet* const reader = module_.load();
    if (!reader)
        return {};
    hangs_ = module_.function<decltype(hangs_)>("quillmere_internet_hangs");
    return reader->read(address, agent);
}

} // namespace desktop
