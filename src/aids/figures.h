#pragma once

#include "base/text.h"

#include <cstddef>

namespace aids {

// What a text amounts to. Ends of lines and pictures are no characters; signs between blanks are no words.
struct TextFigures {
    std::size_t words = 0;
    std::size_t characters = 0;    // with blanks
    std::size_t withoutBlanks = 0; // characters

    bool operator==(const TextFigures&) const = default;
};

TextFigures figuresOf(base::TextView text);

// So many characters in lines of this length, to one decimal place with this sign: how the work is paid.
base::Text linesText(std::size_t characters, std::size_t length, base::TextView decimalSign);

// Words in a minute, rounded; "-" where too little was done to tell.
base::Text speedText(double words, double seconds);

} // namespace aids
