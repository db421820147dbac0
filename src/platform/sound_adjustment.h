// How a recording is made easier to understand.
#pragma once

namespace platform {

enum class Channel { Both, Left, Right };

// What is done to the sound of a recording before it is heard.
struct SoundAdjustment {
    static constexpr int leastBoost = 100; // per cent: as recorded
    static constexpr int mostBoost = 200;

    bool clearVoice = false;         // without rumble and noise, quiet voices as loud as loud ones
    Channel channel = Channel::Both; // a single one is heard in both ears
    int boost = leastBoost;          // amplitude in per cent

    bool operator==(const SoundAdjustment&) const = default;
};

} // namespace platform
