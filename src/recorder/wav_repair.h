// Recordings that a crash cut off: the samples are there, but the header is still empty.
#pragma once

#include "platform/wave_input.h"

#include <atomic>
#include <functional>
#include <optional>
#include <vector>

namespace recorder {

// True for a path that ends in ".wav", ignoring case.
bool hasSoundName(base::TextView path);

// True for a file of any name with 44 zero bytes followed by samples, unless a recorder is writing to it.
bool isCutOff(base::TextView path);

// The "*.wav" files in this folder, without subfolders, for which isCutOff is true, sorted by name; none if
// the folder cannot be read. Stops early when `stop` becomes true.
std::vector<base::Text> cutOffRecordings(base::TextView folder, const std::atomic_bool& stop);

// The repaired copy of a cut-off recording, in the same folder: "talk repaired.wav" for "talk.wav" or "talk",
// with a number if that name is taken.
struct RepairedCopy {
    base::Text path;
    bool made = true; // false: the copy exists from an earlier repair
};

// Called many times a second with the progress from 0 to 1. Returning false cancels the work.
using GoOn = std::function<bool(double share)>;

// Makes the copy and computes its header from the length of the file. Never changes the damaged file. Throws
// Failure with the system's message; on a failure or a cancel it leaves no files behind.
RepairedCopy repairCutOff(base::TextView path, const platform::WaveFormat& format, const GoOn& goOn);

// The copy made by an earlier repair, if it exists.
std::optional<base::Text> earlierRepair(base::TextView path);

} // namespace recorder
