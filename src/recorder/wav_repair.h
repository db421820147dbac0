// Recordings that a crash cut off: the samples are there, the place of the header is empty.
#pragma once

#include "platform/wave_input.h"

#include <atomic>
#include <optional>
#include <vector>

namespace recorder {

// True for a file "*.wav" whose first 44 bytes are zeros with samples behind them, and that no recorder
// writes to.
bool isCutOff(base::TextView path);

// The files in this folder, not below it, that isCutOff tells, by name; none when it cannot be read. Gives up
// when `stop` turns true.
std::vector<base::Text> cutOffRecordings(base::TextView folder, const std::atomic_bool& stop);

// A whole copy of a recording that was cut off, beside it: "talk repaired.wav" of "talk.wav", with a number
// where that name is taken.
struct RepairedCopy {
    base::Text path;
    bool made = true; // false: it is there from an earlier repair
};

// Makes the copy, its header from the length of the file. The damaged file stays as it is, and so does the
// folder when there is no room. Throws Failure in the system's words.
RepairedCopy repairCutOff(base::TextView path, const platform::WaveFormat& format);

// The copy of an earlier repair, if it is there.
std::optional<base::Text> earlierRepair(base::TextView path);

} // namespace recorder
