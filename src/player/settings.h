#pragma once

#include "base/text.h"

#include <cstdint>

namespace player {

// Settings that no control holds. The settings file stores them with the others.
struct Settings {
    std::int16_t SecSalto = 0;    // seconds of one step forward or back
    std::int16_t SecIndietro = 0; // seconds that every pause steps back
    std::int16_t TempoPlay = 0;   // seconds of a play phase of the timed cycle
    std::int16_t TempoPause = 0;  // seconds of a pause phase
    base::Text CartellaMedia;     // folder in which the file dialogs open
};

} // namespace player
