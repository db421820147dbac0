// Options of the playback engine.
#pragma once

#include <string>

struct mpv_handle;

namespace desktop {

// The options that differ between the program and its tests.
struct MpvOptions {
    // Name of an mpv output driver; "null" is silent, in real time. Empty selects the system's sound output.
    std::string audioOutput;
};

// Sets the program's options on a handle that is not initialized yet. Throws base::Failure if mpv refuses one
// of them.
void setOptions(mpv_handle* handle, const MpvOptions& options);

} // namespace desktop
