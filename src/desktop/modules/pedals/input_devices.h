// Which input devices are plugged in, by what the kernel tells everybody.
#pragma once

#include "platform/pedals.h"

#include <string>
#include <vector>

namespace desktop {

struct InputDevice {
    platform::DeviceModel model;
    std::string name; // UTF-8
    std::string path; // of its device file
    bool hasKeys = false;

    bool operator==(const InputDevice&) const = default;
};

// All devices with keys, and those without any input that the kernel would understand. `dev` and `sys` are
// the folders of device files and of what the kernel tells about them.
std::vector<InputDevice> inputDevices(const std::string& dev, const std::string& sys);

} // namespace desktop
