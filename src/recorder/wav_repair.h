// Recordings that a crash cut off: the samples are there, the place of the header is empty.
#pragma once

#include "platform/wave_input.h"

#include <atomic>
#include <functional>
#include <optional>
#include <vector>

namespace recorder {

// True for a path that ends in ".wav", in capitals or not.
bool hasSoundName(base::TextView path);

// True for a file of any name whose first 44 bytes are zeros with samples behind them, and that no recorder
// writes to.
bool isCutOff(base::TextView path);

// The files "*.wav" in this folder, not below it, that isCutOff tells, by name; none when it cannot be read.
// Gives up when `stop` turns true.
std::vector<base::Text> cutOffRecordings(base::TextView folder, const std::atomic_bool& stop);

// A whole copy of a recording that was cut off, beside it: "talk repaired.wav" of "talk.wav" and of "talk",
// with a number where that name is taken.
struct RepairedCopy {
    base::Text path;
    bool made = true; // false: it is there from an earlier repair
};

// Asked many times a second with the share that is done, 0 to 1; false gives the work up.
using GoOn = std::function<bool(double share)>;

// Makes the copy, its header from the length of the file. The damaged file stays as it is, and so does the
// folder when there is no room or the work is given up. Throws Failure in the system's words.
RepairedCopy repairCutOff(base::TextView path, const platform::WaveFormat& format, const GoOn& goOn);

// The copy of an earlier repair, if it is there.
std::optional<base::Text> earlierRepair(base::TextView path);

} // namespace recorder
