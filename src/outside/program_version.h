#pragma once

#include "base/text.h"

#include <string>

namespace outside {

// A version as the program counts it: three numbers below 100.
struct Version {
    int major = 0;
    int minor = 0;
    int revision = 0;

    // Three digits each, as the version file has them: 001015002. A number of 100 or more has no field.
    std::string digits() const;
    // As it is shown: 1.15.0.2.
    base::Text shown() const;
};

inline constexpr Version programVersion{1, 15, 2};

} // namespace outside
