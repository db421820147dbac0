#include "moments/last_positions.h"

#include "base/carry_on.h"
#include "base/files.h"
#include "base/numbers.h"

#include <algorithm>

namespace moments {

namespace {

constexpr double longest = 2'000'000'000; // ms

} // namespace

LastPositions::LastPositions(base::Text path) : path_(std::move(path)) {
    std::string bytes;
    base::carryOn([&] { bytes = base::readFile(path_); });
    const base::Text text = base::fromUtf8(bytes);
    for (std::size_t at = 0; at < text.size() && positions_.size() < most;) {
        const std::size_t end = std::min(text.find(u'\n', at), text.size());
        const base::TextView line = base::TextView(text).substr(at, end - at);
        at = end + 1;
        const auto tab = line.find(u'\t');
        if (tab == base::TextView::npos || !base::isNumber(line.substr(0, tab)))
            continue;
        const double ms = base::val(line.substr(0, tab));
        if (ms >= 0 && ms <= longest)
            positions_.emplace_back(base::fromOneLine(line.substr(tab + 1)), static_cast<std::int32_t>(ms));
    }
}

std::optional<std::int32_t> LastPositions::of(base::TextView recording) const {
    const auto hit = std::find_if(positions_.begin(), positions_.end(),
                                  [&](const auto& position) { return position.first == recording; });
    return hit == positions_.end() ? std::nullopt : std::optional(hit->second);
}

void LastPositions::set(base::TextView recording, std::int32_t ms) {
    if (!positions_.empty() && positions_.front() == std::pair(base::Text(recording), ms))
        return;
    std::erase_if(positions_, [&](const auto& position) { return position.first == recording; });
    positions_.emplace(positions_.begin(), recording, ms);
    if (positions_.size() > most)
        positions_.pop_back();
    changed_ = true;
}

void LastPositions::save(platform::Worker& disk) {
    if (!changed_)
        return;
    base::Text text;
    for (const auto& [recording, ms] : positions_)
        text += base::numberText(ms) + u'\t' + base::oneLine(recording) + u'\n';
    disk.post([path = path_, bytes = base::toUtf8(text)] {
        base::carryOn([&] { base::replacePrivateFile(path, bytes); });
    });
    changed_ = false;
}

} // namespace moments
