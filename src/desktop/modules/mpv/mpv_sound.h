#pragma once

#include "platform/sound_adjustment.h"

#include <string>

namespace desktop {

// The audio filters of this adjustment, as a value of mpv's option "af"; empty for none. No filter moves the
// sound, shortens it or changes its number of channels, for which mpv would open the sound output again. A
// filter that two adjustments have in common is the same in both, and mpv keeps it running.
std::string soundFilters(const platform::SoundAdjustment& sound);

} // namespace desktop
