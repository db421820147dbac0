#include "mpv_sound.h"

#include <algorithm>

namespace desktop {

using platform::Channel;
using platform::SoundAdjustment;

namespace {

// A recording may have any number of channels: all of them become this one.
constexpr const char* leftChannel = "@channel:lavfi=[aeval=val(0):c=same]";
constexpr const char* rightChannel = "@channel:lavfi=[aeval=val(min(1\\,nb_in_channels-1)):c=same]";

// The noise filter delays the sound by two of its blocks (an 80th of a second each), with which it also
// begins: they are cut off, the time stamps are corrected, and silence at the end drives the last sound out.
// The others have no delay.
constexpr const char* clearVoice = "@clear:lavfi=["
                                   "highpass=f=90,"
                                   "apad=pad_dur=0.025,"
                                   "afftdn=nr=12:nf=-30:tn=1:tr=1,"
                                   "aselect=gte(n\\,2),"
                                   "asetpts=PTS-2*floor(SR/80)/SR/TB,"
                                   "acompressor=threshold=0.03:ratio=4:attack=5:release=150:makeup=4]";

// Louder sound must not be cut off at full scale. It compensates its own delay.
constexpr const char* limiter = "@limit:lavfi=[alimiter=level=0:limit=0.95:latency=1]";

void add(std::string& filters, const std::string& filter) {
    filters.append(filters.empty() ? "" : ",").append(filter);
}

} // namespace

std::string soundFilters(const SoundAdjustment& sound) {
    std::string filters;
    if (sound.channel != Channel::Both)
        add(filters, sound.channel == Channel::Left ? leftChannel : rightChannel);
    if (sound.clearVoice)
        add(filters, clearVoice);
    const int boost = std::clamp(sound.boost, SoundAdjustment::leastBoost, SoundAdjustment::mostBoost);
    if (boost > SoundAdjustment::leastBoost)
        add(filters, "@boost:lavfi=[volume=" + std::to_string(boost) + "/100]");
    if (sound.clearVoice || boost > SoundAdjustment::leastBoost)
        add(filters, limiter);
    return filters;
}

} // namespace desktop
