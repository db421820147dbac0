// How the engine is made.
#pragma once

#include <string>

struct mpv_handle;

namespace desktop {

// What differs between the program and its tests.
struct MpvOptions {
    // Output driver by mpv's name, "null" for silence in real time; empty for what the system has.
    std::string audioOutput;
};

// Gives a handle that is not initialized yet the options of the program's player. Throws base::Failure when
// mpv refuses one of them.
void setOptions(mpv_handle* handle, const MpvOptions& options);

} // namespace desktop
