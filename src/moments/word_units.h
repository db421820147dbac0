// What counts as a word for the moments: letters between white space. A sign of a script that writes without
// blanks is a word by itself.
#pragma once

#include "base/text.h"

#include <utility>

namespace moments {

constexpr bool isBlank(char16_t unit) {
    return unit <= u' ' || unit == u'\u00A0' || unit == u'\u1680' ||
           (unit >= u'\u2000' && unit <= u'\u200B') || unit == u'\u2028' || unit == u'\u2029' ||
           unit == u'\u202F' || unit == u'\u205F' || unit == u'\u3000';
}

constexpr bool standsAlone(char16_t unit) {
    return (unit >= u'\u3040' && unit <= u'\u30FF') || (unit >= u'\u3400' && unit <= u'\u9FFF') ||
           (unit >= u'\uF900' && unit <= u'\uFAFF');
}

// True when two neighbours are letters of one word.
constexpr bool inOneWord(char16_t first, char16_t second) {
    return !isBlank(first) && !isBlank(second) && !standsAlone(first) && !standsAlone(second);
}

// Calls `take` with the place and the letters of each word, in order.
template <typename Take>
void forEachWord(base::TextView text, Take&& take) {
    for (std::size_t begin = 0; begin < text.size();) {
        if (isBlank(text[begin])) {
            ++begin;
            continue;
        }
        std::size_t end = begin + 1;
        while (end < text.size() && inOneWord(text[end - 1], text[end]))
            ++end;
        take(begin, text.substr(begin, end - begin));
        begin = end;
    }
}

// The word around a place of the text, or the one before it: where it begins, and its length; 0 for none.
inline std::pair<std::size_t, std::size_t> wordAround(base::TextView text, std::size_t place) {
    std::size_t begin = place;
    if (begin == text.size() || isBlank(text[begin])) {
        if (begin == 0 || isBlank(text[begin - 1]))
            return {place, 0};
        --begin;
    }
    std::size_t end = begin + 1;
    while (begin > 0 && inOneWord(text[begin - 1], text[begin]))
        --begin;
    while (end < text.size() && inOneWord(text[end - 1], text[end]))
        ++end;
    return {begin, end - begin};
}

} // namespace moments
