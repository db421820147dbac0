#include "sound/phrase_step.h"

#include <algorithm>
#include <cmath>

namespace sound {

namespace {

constexpr double farthest = 1.5;   // s between a step's own target and the phrase
constexpr double leastStep = 0.5;  // s
constexpr double leastHeard = 0.3; // s that a playback proceeds, at least

std::int32_t msOf(double seconds) {
    constexpr double most = 2'000'000'000;
    return static_cast<std::int32_t>(std::lround(std::clamp(seconds * 1000, -most, most)));
}

} // namespace

double phraseStep(const Phrases& phrases, double from, double to, std::optional<double> heardFrom) {
    if (to <= 0)
        return to;
    double least = std::max(to - farthest, 0.0);
    if (heardFrom && *heardFrom < to)
        least = std::max(least, *heardFrom + leastHeard);
    const double most = std::min(to + farthest, from - std::min(leastStep, (from - to) / 2));
    const auto target = phrases.nearest(msOf(to), msOf(least), msOf(most));
    return target ? *target / 1000.0 : to;
}

} // namespace sound
