// Subtitles that can be read: how long each is shown and how its lines are broken.
#pragma once

#include "drafts/turns.h"

#include <cstddef>
#include <vector>

namespace drafts {

// One subtitle: one line or two.
struct Caption {
    Ms startMs = 0;
    Ms endMs = 0;
    Text speaker;
    bool firstOfTurn = false; // the speaker begins here
    std::vector<Text> lines;
};

struct CaptionRules {
    std::size_t lineLength = 42; // letters
    Ms leastMs = 1000;
    Ms mostMs = 7000;
    int lettersPerSecond = 17;
    bool namesInText = false; // "Name: " takes room in the first caption of a turn
};

struct Captions {
    std::vector<Caption> captions; // in the order of time, without overlap
    std::size_t withoutTime = 0;   // paragraphs left out because none of their words has a time
    std::size_t tooFast = 0;       // captions shown for less time than their letters ask for
};

// Cuts the turns into captions: at sentences and clauses where there is a choice, and where the speaker
// pauses. A caption may stay a second longer than it is heard, or come a second late, so that it can be read.
Captions captions(const std::vector<Turn>& turns, const CaptionRules& rules);

} // namespace drafts
