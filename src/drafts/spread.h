// Times for each word of a segment.
#pragma once

#include "drafts/draft.h"

#include <vector>

namespace drafts {

// The time that a letter takes where only the beginning of what was said is known.
inline constexpr Ms msPerLetter = 70;

// One entry for each word of the segment's text. A word has the times that the file gives for its letters; a
// time that covers several words, or the segment's own, is shared out by the letters. Words stay without
// times when the segment has none.
std::vector<Word> spreadWords(const Segment& segment);

// Gives each segment of a cue its part of the cue's time, by the letters.
void shareCueTimes(std::vector<Segment>& segments);

} // namespace drafts
