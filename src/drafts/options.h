#pragma once

namespace drafts {

// What the user can choose about drafts.
struct Options {
    int pauseMs = 1500; // a pause of this length begins a paragraph
};

} // namespace drafts
