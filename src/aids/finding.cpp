#include "aids/finding.h"

#include <algorithm>
#include <utility>

namespace aids {

namespace {

constexpr std::size_t shownBefore = 24; // units
constexpr std::size_t shownAfter = 60;
constexpr base::TextView lineEnds = u"\r\n";

} // namespace

std::size_t Findings::add(FindingKind kind, base::TextView text, std::int32_t position, std::size_t begin,
                          std::size_t length) {
    const std::size_t index = all_.size();
    const std::size_t first = begin - std::min(begin, shownBefore);
    const base::TextView before = text.substr(first, begin - first);
    const base::TextView after = text.substr(begin + length, shownAfter);
    const std::size_t end = before.find_last_of(lineEnds);
    Finding finding;
    finding.kind = kind;
    finding.position = position + static_cast<std::int32_t>(begin);
    finding.length = static_cast<std::int32_t>(length);
    finding.letters = text.substr(begin, length);
    finding.before = end == base::TextView::npos ? before : before.substr(end + 1);
    if (end == base::TextView::npos && first > 0)
        finding.before.insert(0, 1, u'\u2026');
    finding.after = after.substr(0, after.find_first_of(lineEnds));
    add(std::move(finding));
    return index;
}

void Findings::add(Finding finding) {
    if (counts_.at(static_cast<std::size_t>(finding.kind))++ < mostOfKind)
        all_.push_back(std::move(finding));
}

std::vector<Finding> Findings::take() {
    std::stable_sort(all_.begin(), all_.end(), [](const Finding& a, const Finding& b) {
        return std::pair(a.kind, a.position) < std::pair(b.kind, b.position);
    });
    counts_ = {};
    return std::exchange(all_, {});
}

} // namespace aids
