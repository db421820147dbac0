// What the program asks of the system around it.
#pragma once

#include "base/text.h"

#include <vector>

namespace platform {

// The system's own facts and services.
class System {
public:
    virtual ~System() = default;

    // Folder of the executable, without a separator at its end. All data lies below it.
    virtual base::Text programFolder() const = 0;

    // The text of one locale setting of the user; empty when there is none.
    virtual base::Text LeggiLocale(int setting) const = 0;

    // True when this program already runs from the same folder for the same user. The first call claims the
    // place; a process that ends in any way frees it.
    virtual bool previousInstance() = 0;

    // The system's short sound.
    virtual void beep() = 0;

    // The names of the fonts that the screen has, in the system's order.
    virtual std::vector<base::Text> screenFonts() const = 0;

    // Ends the process when the handler that runs has returned. From now on the program hears nothing any
    // more: no alarm is called, no event of a window, a player or a device arrives.
    virtual void endProcess() = 0;
};

// The settings of LeggiLocale that the program reads: the English name of the user's country, and the sign
// between the whole number and its decimals.
inline constexpr int localeEnglishCountry = 4098;
inline constexpr int localeDecimalSign = 14;

} // namespace platform
