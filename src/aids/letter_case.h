// Capital and small letters beyond ASCII, as far as names and words need them.
#pragma once

#include "base/text.h"

namespace aids {

// The small letter of a capital of the Latin, Greek, Cyrillic or Armenian script; other units stay.
char16_t lowered(char16_t unit);
base::Text lowered(base::TextView text);

// The other way round; a small letter without a capital stays.
char16_t raised(char16_t unit);
base::Text raised(base::TextView text);
// The text with a capital as its first letter.
base::Text capitalised(base::TextView text);

inline bool isCapital(char16_t unit) {
    return lowered(unit) != unit;
}

} // namespace aids
