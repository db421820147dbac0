#pragma once

#include "sound/phrases.h"
#include "sound/waveform.h"

namespace sound {

// What is known about the sound of a recording: where people speak, and its shape.
struct SoundMap {
    Phrases phrases;
    Waveform waveform;
};

} // namespace sound
