#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace sound {

// A run of speech between two pauses, in ms from the beginning of the recording.
struct Phrase {
    std::int32_t begin = 0; // a little before the first sound
    std::int32_t end = 0;

    bool operator==(const Phrase&) const = default;
};

// A short dip of the sound inside a phrase, most often between two words.
struct Gap {
    std::int32_t at = 0;    // ms; the sound is about to rise again
    std::uint8_t depth = 0; // the larger, the more it is like a pause

    bool operator==(const Gap&) const = default;
};

// Where people speak in a recording.
class Phrases {
public:
    Phrases() = default;
    // Both ascending; phrases do not overlap.
    Phrases(std::vector<Phrase> phrases, std::vector<Gap> gaps);

    const std::vector<Phrase>& all() const { return phrases_; }
    const std::vector<Gap>& gaps() const { return gaps_; }

    // The beginning of the phrase before this moment: that of the phrase around it, unless it has just begun.
    std::optional<std::int32_t> before(std::int32_t ms) const;
    // The beginning of the first phrase after this moment.
    std::optional<std::int32_t> after(std::int32_t ms) const;
    // The beginning of a phrase that is nearest to this moment, within these limits (ms); in speech without a
    // pause, the clearest gap. Nothing where nobody speaks.
    std::optional<std::int32_t> nearest(std::int32_t ms, std::int32_t least, std::int32_t most) const;

    bool operator==(const Phrases&) const = default;

private:
    std::vector<Phrase> phrases_;
    std::vector<Gap> gaps_;
};

} // namespace sound
