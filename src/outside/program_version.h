#pragma once

#include "base/text.h"

#include <string>

namespace outside {

// The program's version: three numbers below 100.
struct Version {
    int major = 0;
    int minor = 0;
    int revision = 0;

    // Three digits per number, as in the version file: 001015002. A number of 100 or more yields no digits.
    std::string digits() const;
    // The version as displayed: 1.15.0.2.
    base::Text shown() const;
};

inline constexpr Version programVersion{1, 15, 2};

} // namespace outside
