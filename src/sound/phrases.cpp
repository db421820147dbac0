#include "sound/phrases.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace sound {

namespace {

constexpr std::int32_t justBegun = 700; // ms, in which "back" means the phrase before

} // namespace

Phrases::Phrases(std::vector<Phrase> phrases, std::vector<Gap> gaps)
    : phrases_(std::move(phrases)), gaps_(std::move(gaps)) {}

std::optional<std::int32_t> Phrases::before(std::int32_t ms) const {
    const auto behind = std::ranges::upper_bound(phrases_, ms - justBegun, {}, &Phrase::begin);
    return behind == phrases_.begin() ? std::nullopt : std::optional(std::prev(behind)->begin);
}

std::optional<std::int32_t> Phrases::after(std::int32_t ms) const {
    const auto next = std::ranges::upper_bound(phrases_, ms, {}, &Phrase::begin);
    return next == phrases_.end() ? std::nullopt : std::optional(next->begin);
}

std::optional<std::int32_t> Phrases::nearest(std::int32_t ms, std::int32_t least, std::int32_t most) const {
    std::optional<std::int32_t> best;
    for (auto phrase = std::ranges::lower_bound(phrases_, least, {}, &Phrase::begin);
         phrase != phrases_.end() && phrase->begin <= most; ++phrase)
        if (!best || std::abs(phrase->begin - ms) < std::abs(*best - ms))
            best = phrase->begin;
    if (best)
        return best;
    const Gap* clearest = nullptr;
    for (auto gap = std::ranges::lower_bound(gaps_, least, {}, &Gap::at);
         gap != gaps_.end() && gap->at <= most; ++gap)
        if (!clearest || gap->depth > clearest->depth)
            clearest = &*gap;
    return clearest ? std::optional(clearest->at) : std::nullopt;
}

} // namespace sound
