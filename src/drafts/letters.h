// What kind of letter a UTF-16 unit is, as far as words and lines of speech need it.
#pragma once

#include "base/text.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace drafts {

// White space and control characters; the space that does not break is a letter's neighbour and none of
// these.
bool isBlank(char16_t unit);

// Letters and digits of every script, as opposed to blanks and punctuation.
bool isLetter(char16_t unit);

// Letters of the scripts that write no blanks between words, with their punctuation.
bool isUnspaced(char16_t unit);

// The text without blanks at either end.
base::TextView stripped(base::TextView text);

// The text without blanks at either end, with one space for each run of them.
base::Text collapsed(base::TextView text);

// True where two pieces of speech that follow each other need a blank between them.
bool needsBlankBetween(base::TextView before, base::TextView after);

// The lines of a text without their ends: CR LF, CR or LF.
std::vector<base::TextView> lines(base::TextView text);

} // namespace drafts
