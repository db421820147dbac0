#pragma once

namespace drafts {

// What the user can choose about drafts and exports.
struct Options {
    int pauseMs = 1500;         // a pause of this length begins a paragraph
    bool exportStamps = false;  // plain text has a time stamp before each paragraph
    bool exportSpeakers = true; // plain text has the names of the speakers
};

} // namespace drafts
