#pragma once

#include "sound/phrases.h"

#include <cstdint>
#include <span>
#include <vector>

namespace sound {

inline constexpr int samplesPerSec = 16'000;

// Tells speech from what lies below it. It compares each hundredth of a second with the quietest and the
// loudest parts of the twenty seconds around it: so it follows noise and music that come and go, and speakers
// near the microphone and far from it. Clicks are too short, and hum too low.
class PhraseFinder {
public:
    static constexpr int frameMs = 10;

    // The next samples of the recording.
    void add(std::span<const std::int16_t> samples);
    // The phrases of all samples so far.
    Phrases find() const;

private:
    double passHigh(double sample);

    std::vector<std::uint8_t> levels_; // of each frame, in half dB above -100 dB
    double sum_ = 0;                   // of squares, of the frame that is not complete
    int count_ = 0;                    // of its samples
    double first_ = 0;                 // states of the filter
    double second_ = 0;
};

} // namespace sound
