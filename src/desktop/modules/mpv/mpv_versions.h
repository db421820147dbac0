#pragma once

#include <string>

namespace desktop {

// The versions of mpv and of its FFmpeg, one per line; empty if libmpv cannot be started.
std::string mpvVersions();

} // namespace desktop
