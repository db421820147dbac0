#pragma once

#include "sound/phrases.h"

#include <optional>

namespace sound {

// Where a step back from `from` to `to` leads (seconds): to the beginning of the phrase that is nearest to
// `to`, at most 1.5 s away; to `to` itself if there is none. A step goes back anyhow, by half of its length
// or half a second. One that ends a playback which began at `heardFrom`, before `to`, goes on from there.
double phraseStep(const Phrases& phrases, double from, double to, std::optional<double> heardFrom);

} // namespace sound
