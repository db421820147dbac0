#include "mpv_versions.h"

#include <clocale>
#include <memory>
#include <mpv/client.h>

namespace desktop {

namespace {

struct Terminate {
    void operator()(mpv_handle* handle) const { mpv_terminate_destroy(handle); }
};

std::string property(mpv_handle* handle, const char* name) {
    const std::unique_ptr<char, decltype(&mpv_free)> value(mpv_get_property_string(handle, name), &mpv_free);
    return value ? value.get() : "";
}

} // namespace

std::string mpvVersions() {
    std::setlocale(LC_NUMERIC, "C"); // mpv refuses to start otherwise
    // A separate handle: the player's own handle answers only after it has opened a file.
    const std::unique_ptr<mpv_handle, Terminate> handle(mpv_create());
    if (!handle || mpv_set_option_string(handle.get(), "config", "no") < 0 ||
        mpv_initialize(handle.get()) < 0)
        return {};
    std::string own = property(handle.get(), "mpv-version"); // "mpv 0.35.1"
    return own.substr(own.rfind(' ') + 1) + '\n' + property(handle.get(), "ffmpeg-version");
}

} // namespace desktop
