#pragma once

#include <string>

namespace desktop {

// The versions of mpv and of the FFmpeg behind it, a line each; empty when libmpv cannot be started.
std::string mpvVersions();

} // namespace desktop
