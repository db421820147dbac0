#pragma once

#include "lang/words.h"

#include <vector>

namespace lang {

// A message for the user that is translated when it is shown, so that it follows a change of language.
struct Sentence {
    English sentence;
    std::vector<base::Text> parts; // they replace its %1, %2

    // In the program's language.
    base::Text in(const Words& words) const {
        return filledIn(words(sentence), std::vector<base::TextView>(parts.begin(), parts.end()));
    }
};

} // namespace lang
