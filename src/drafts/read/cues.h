// What SubRip and WebVTT have in common: cues of a few lines each, under a line of times.
#pragma once

#include "drafts/draft.h"
#include "drafts/read/markup.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace drafts {

struct Cue {
    Ms startMs = 0;
    Ms endMs = 0;
    std::size_t line = 0; // of its times, counted from 1
    std::vector<TextView> lines;
};

// The times of a line "00:00:01,000 --> 00:00:02,500"; none when the line is no such line. `fraction` is what
// the form writes before the fraction; anything else is noted. Throws Damage when times were meant and cannot
// be read.
std::optional<Cue> timeLine(TextView line, std::size_t number, char16_t fraction, Draft& draft);

// Adds a segment for each cue, or more where it has several voices. Captions that roll, each cue repeating
// the lines above its new one, are folded: each line counts once, with the times of its words.
void addCues(const std::vector<Cue>& cues, Tags tags, Draft& draft);

} // namespace drafts
