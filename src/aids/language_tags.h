// The languages of the program as dictionaries name them.
#pragma once

#include "platform/spelling.h"

#include <string_view>
#include <vector>

namespace aids {

struct LanguageTag {
    std::string_view tag;     // with the country whose dictionary is the usual one
    std::string_view package; // Debian's package with the dictionary
};

// By the name of the language file; English for one that is not among the ten of the program.
LanguageTag tagOfProgram(base::TextView fileLingua);

// Sorts the dictionaries: first the one with exactly this tag, then those of the same language, then the rest
// by name.
void putFirst(std::string_view tag, std::vector<platform::SpellingLanguage>& languages);

// True if both are tags of one language, whatever the country.
bool isSameLanguage(std::string_view a, std::string_view b);

} // namespace aids
