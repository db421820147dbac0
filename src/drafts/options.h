#pragma once

#include "base/text.h"
#include "drafts/recognisers.h"

#include <array>

namespace drafts {

// User options for drafts and exports.
struct Options {
    int pauseMs = 1500;         // a pause of this length begins a paragraph
    bool exportStamps = false;  // plain text has a time stamp before each paragraph
    bool exportSpeakers = true; // plain text has the names of the speakers
};

// Which recogniser the user has chosen.
struct RecogniserOptions {
    int chosen = 0;                                   // index in recognisers()
    std::array<base::Text, recogniserCount> commands; // command lines; an empty one is the recogniser's own
};

} // namespace drafts
