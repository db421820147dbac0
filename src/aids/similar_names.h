#pragma once

#include "base/text.h"

#include <cstdint>
#include <map>
#include <vector>

namespace aids {

// How a speaker is called in the text.
struct NameUse {
    std::int32_t position = 0; // of the first one
    int count = 0;
};

// A name that is likely to be another one, spelled wrongly.
struct SimilarName {
    base::Text name;
    base::Text usual; // that is in the text more often, or earlier
};

// True if two names are one, spelled in two ways: by capitals, blanks and stops, or by a slip in one of their
// words. Names with different numbers are two.
bool isOneName(base::TextView a, base::TextView b);

std::vector<SimilarName> similarNames(const std::map<base::Text, NameUse>& names);

} // namespace aids
