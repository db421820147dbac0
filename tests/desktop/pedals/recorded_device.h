#pragma once

#include <set>

// What the kernel would tell of the device behind each pipe of this process.
struct RecordedDevice {
    std::set<int> keys{30, 48, 256, 257, 258}; // which it has
    std::set<int> held;                        // as the kernel sees them now
    int grabs = 0;
};

RecordedDevice& recordedDevice();
