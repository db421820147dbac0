// The words of a text that a dictionary can judge.
#pragma once

#include "base/text.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace aids {

// The letters of one script.
class Script {
public:
    // The script in which a language is written, by its tag, such as "ru_RU"; Latin unless another is known.
    static Script of(std::string_view tag);

    bool has(char16_t unit) const;

private:
    char16_t first_ = 0; // 0: Latin
    char16_t last_ = 0;
};

struct CheckedWord {
    std::int32_t position = 0; // UTF-16 units
    std::int32_t length = 0;
    // With the full stop behind it where the word may be an abbreviation. Refers to the text.
    base::TextView letters;
};

// No run of letters that is longer than this, in units, is looked at.
inline constexpr std::int32_t longestRun = 256;

// The words of a part of a text, in order. Without single letters, words with digits, addresses, names of
// files, and words of another script than that of the dictionary. What a cut at an end of the part left of a
// run of letters longer than `longestRun` is none.
std::vector<CheckedWord> checkedWords(base::TextView text, const Script& script);

// The word without the full stop of an abbreviation, with the apostrophes and hyphens that dictionaries have.
base::Text dictionaryForm(base::TextView letters);

} // namespace aids
