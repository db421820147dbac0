// Which words of a changed text are those of the text that it came from.
#pragma once

#include "base/text.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace moments {

inline constexpr std::size_t unmatched = SIZE_MAX;

// A number for a word by its letters; words that differ in case or in the signs around them have the same.
std::uint16_t wordHash(base::TextView word);

// For each of the words `fresh` its place among `old`, or `unmatched`: the pairs of an edit distance, so that
// they run in order on both sides. Words that stand in both texts at the same place from either end are
// paired at once; between, words that occur once in both split the rest, and what is left is compared within
// a band. Time grows with the number of words, and with the square of a stretch without anything in common up
// to a limit, beyond which its words stay unmatched.
std::vector<std::size_t> align(const std::vector<std::uint16_t>& old,
                               const std::vector<std::uint16_t>& fresh);

} // namespace moments
