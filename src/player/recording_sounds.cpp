#include "player/recording_sounds.h"

#include "base/carry_on.h"
#include "base/files.h"
#include "base/numbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <optional>

namespace player {

using platform::Channel;
using platform::SoundAdjustment;

namespace {

constexpr double longest = 2'000'000'000; // ms
constexpr std::int32_t tolerance = 1000;  // ms; a length may be an estimate

// The whole number in this field; empty if it is none from `least` to `most`.
std::optional<std::int32_t> numberIn(base::TextView field, double least, double most) {
    if (!base::isNumber(field))
        return std::nullopt;
    const double number = base::val(field);
    if (number < least || number > most || number != std::floor(number))
        return std::nullopt;
    return static_cast<std::int32_t>(number);
}

} // namespace

bool RecordingSounds::Recording::is(base::TextView otherName, std::int32_t otherLength) const {
    return name == otherName && (otherLength == 0 || std::abs(length - otherLength) <= tolerance);
}

RecordingSounds::RecordingSounds(base::Text path) : path_(std::move(path)) {
    std::string bytes;
    base::carryOn([&] { bytes = base::readFile(path_); });
    const base::Text text = base::fromUtf8(bytes);
    for (std::size_t at = 0; at < text.size() && recordings_.size() < most;) {
        const std::size_t end = std::min(text.find(u'\n', at), text.size());
        read(base::TextView(text).substr(at, end - at));
        at = end + 1;
    }
}

void RecordingSounds::read(base::TextView line) {
    std::array<base::TextView, 4> fields;
    for (base::TextView& field : fields) {
        const std::size_t tab = line.find(u'\t');
        if (tab == base::TextView::npos)
            return;
        field = line.substr(0, tab);
        line.remove_prefix(tab + 1);
    }
    const auto voice = numberIn(fields[0], 0, 1);
    const auto channel = numberIn(fields[1], 0, 2);
    const auto boost = numberIn(fields[2], SoundAdjustment::leastBoost, SoundAdjustment::mostBoost);
    const auto length = numberIn(fields[3], 0, longest);
    if (voice && channel && boost && length)
        recordings_.push_back({base::fromOneLine(line), *length,
                               SoundAdjustment{*voice == 1, static_cast<Channel>(*channel), *boost}});
}

SoundAdjustment RecordingSounds::of(base::TextView name, std::int32_t length) const {
    const auto hit = std::find_if(recordings_.begin(), recordings_.end(),
                                  [&](const Recording& one) { return one.is(name, length); });
    return hit == recordings_.end() ? SoundAdjustment() : hit->sound;
}

void RecordingSounds::set(base::TextView name, std::int32_t length, const SoundAdjustment& sound,
                          platform::Worker& disk) {
    std::erase_if(recordings_, [&](const Recording& one) { return one.is(name, length); });
    if (sound != SoundAdjustment())
        recordings_.insert(recordings_.begin(), {base::Text(name), length, sound});
    if (recordings_.size() > most)
        recordings_.pop_back();
    save(disk);
}

void RecordingSounds::save(platform::Worker& disk) const {
    base::Text text;
    for (const auto& [name, length, sound] : recordings_)
        text += base::numberText(sound.clearVoice ? 1 : 0) + u'\t' +
                base::numberText(static_cast<int>(sound.channel)) + u'\t' + base::numberText(sound.boost) +
                u'\t' + base::numberText(length) + u'\t' + base::oneLine(name) + u'\n';
    disk.post([path = path_, bytes = base::toUtf8(text)] {
        base::carryOn([&] { base::replacePrivateFile(path, bytes); });
    });
}

} // namespace player
