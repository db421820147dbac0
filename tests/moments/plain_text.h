#pragma once

#include "moments/word_moments.h"

#include <algorithm>
#include <cstring>

namespace plain {

constexpr int unknown = -2; // of letters that were edited
constexpr int none = -1;

// A text that keeps a moment with each letter: the start of its word, in ms. Letters and moments are apart,
// so that the copies, of which the tests make thousands, cost little.
struct Text {
    base::Text letters;
    std::vector<int> starts;

    std::size_t size() const { return letters.size(); }
    void replace(std::size_t at, std::size_t removed, const Text& by) {
        letters.replace(at, removed, by.letters);
        const auto from = starts.begin() + static_cast<std::ptrdiff_t>(at);
        starts.insert(starts.erase(from, from + static_cast<std::ptrdiff_t>(removed)), by.starts.begin(),
                      by.starts.end());
    }
    Text part(std::size_t at, std::size_t count) const {
        const auto from = starts.begin() + static_cast<std::ptrdiff_t>(at);
        return {letters.substr(at, count), {from, from + static_cast<std::ptrdiff_t>(count)}};
    }
};

inline Text edited(const base::Text& letters) {
    return {letters, std::vector<int>(letters.size(), unknown)};
}

// Words of five digits, each 300 ms behind the one before.
inline Text transcript(int words, int firstStart) {
    Text text;
    for (int word = 0; word < words; ++word) {
        text.letters += base::fromUtf8(std::to_string(10'000 + word)) + u' ';
        text.starts.insert(text.starts.end(), 5, firstStart + 300 * word);
        text.starts.push_back(none);
    }
    return text;
}

inline moments::Timed timed(const Text& text) {
    moments::Timed timed;
    for (const int start : text.starts)
        timed.runs.push_back(
            {1, start == none ? std::nullopt : std::optional(moments::Moment{.start = start})});
    return timed;
}

// The starts of all letters, as the tested moments tell them.
inline std::vector<int> startsOf(const moments::Timed& timed) {
    std::vector<int> starts(static_cast<std::size_t>(timed.length()));
    int* next = starts.data();
    for (const moments::Timed::Run& run : timed.runs) {
        const int start = run.moment ? run.moment->start : none;
        for (const int* const end = next + run.length; next < end; ++next)
            *next = start;
    }
    return starts;
}

// How many elements two rows share at the head, or at the end; at most `most`.
template <typename Row>
std::size_t shared(const Row& a, const Row& b, std::size_t most, bool atEnd) {
    std::size_t same = 0;
    while (same < most) {
        const std::size_t tried = (same + most + 1) / 2;
        const auto* const first = a.data() + (atEnd ? a.size() - tried : same);
        const auto* const second = b.data() + (atEnd ? b.size() - tried : same);
        if (std::memcmp(first, second, (tried - same) * sizeof(*first)) == 0)
            same = tried;
        else
            most = tried - 1;
    }
    return same;
}

// Where two texts differ: from this place on, so many letters of each.
struct Difference {
    std::size_t begin = 0;
    std::size_t first = 0;
    std::size_t second = 0;
};

inline Difference difference(const base::Text& a, const base::Text& b) {
    const std::size_t least = std::min(a.size(), b.size());
    const std::size_t head = shared(a, b, least, false);
    const std::size_t tail = shared(a, b, least - head, true);
    return {head, a.size() - head - tail, b.size() - head - tail};
}

inline Difference difference(const Text& a, const Text& b) {
    const std::size_t least = std::min(a.size(), b.size());
    const std::size_t head = shared(a.starts, b.starts, shared(a.letters, b.letters, least, false), false);
    const std::size_t tail =
        shared(a.starts, b.starts, shared(a.letters, b.letters, least - head, true), true);
    return {head, a.size() - head - tail, b.size() - head - tail};
}

} // namespace plain
