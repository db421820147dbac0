// The port to the operating system.
#pragma once

#include "base/text.h"

#include <vector>

namespace platform {

// Facts and services of the operating system.
class System {
public:
    virtual ~System() = default;

    // The folder of the executable, without a trailing separator. All data is stored below it.
    virtual base::Text programFolder() const = 0;

    // One setting of the user's locale as text; empty if it does not exist.
    virtual base::Text LeggiLocale(int setting) const = 0;

    // True if this program already runs from the same folder for the same user. The first call registers this
    // process as the running instance until it ends, in whatever way.
    virtual bool previousInstance() = 0;

    // Plays the system's notification sound.
    virtual void beep() = 0;

    // The names of the screen fonts, in the system's order.
    virtual std::vector<base::Text> screenFonts() const = 0;

    // Ends the process once the running handler has returned. From now on no alarm and no event of a window,
    // a player or a device is delivered.
    virtual void endProcess() = 0;
};

// Settings for LeggiLocale: the English name of the user's country, and the decimal separator.
inline constexpr int localeEnglishCountry = 4098;
inline constexpr int localeDecimalSign = 14;

} // namespace platform
