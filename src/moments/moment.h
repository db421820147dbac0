#pragma once

#include <cstdint>

namespace moments {

// Where in the recording a word is spoken.
struct Moment {
    static constexpr std::int32_t noEnd = -1;
    static constexpr std::uint8_t noConfidence = 255;

    std::int32_t start = 0;                 // ms from the beginning of the recording, 0 or more
    std::int32_t end = noEnd;               // ms, not before `start`; noEnd where nobody told it
    std::uint8_t confidence = noConfidence; // of a recogniser, 0 to 100 percent; noConfidence without one

    bool operator==(const Moment&) const = default;
};

// A part of a text with its moment. Positions are UTF-16 units.
struct MomentOfText {
    std::uint32_t begin = 0;
    std::uint32_t length = 0;
    Moment moment;

    bool operator==(const MomentOfText&) const = default;
};

} // namespace moments
