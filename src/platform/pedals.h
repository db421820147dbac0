// The port to foot pedals.
#pragma once

#include "base/text.h"

#include <compare>
#include <cstdint>
#include <functional>
#include <vector>

namespace platform {

// A kind of device, by the numbers of its maker and its model.
struct DeviceModel {
    std::uint16_t vendor = 0;
    std::uint16_t product = 0;

    auto operator<=>(const DeviceModel&) const = default;
};

// One pedal of a kind of device: the code of its key or, on a device without keys, its bit in the report.
struct PedalCode {
    DeviceModel model;
    bool isBit = false;
    int code = 0;

    auto operator<=>(const PedalCode&) const = default;
};

// A device that is plugged in.
struct PedalDevice {
    DeviceModel model;
    base::Text name; // as it calls itself
    base::Text path; // of its device file
    bool readable = false;

    bool operator==(const PedalDevice&) const = default;
};

// Which devices are read.
struct WatchedModel {
    DeviceModel model;
    bool isPedal = false; // certainly: what it types reaches no other program
};

// The foot pedals of the machine, also those that are plugged in later. Events come from the event loop,
// never from within a call.
class Pedals {
public:
    Pedals() = default;
    Pedals(const Pedals&) = delete;
    Pedals& operator=(const Pedals&) = delete;
    virtual ~Pedals() = default;

    // Reads devices of these models from now on, with `all` every device, and no others. Pedals that were
    // held are not reported as released.
    virtual void watch(const std::vector<WatchedModel>& models, bool all) = 0;
    // No event follows.
    virtual void stop() = 0;

    // The watched devices, including those that this user may not read.
    virtual std::vector<PedalDevice> devices() const = 0;

    // Why pedals cannot be used at all, in the system's words; empty if they can.
    virtual base::Text failure() const = 0;

    // A pedal was pressed or released, on the device of this number. Unplugging releases the pedals that are
    // held.
    std::function<void(int device, const PedalCode& pedal, bool pressed)> Moved = [](int, const PedalCode&,
                                                                                     bool) {};
    // devices() has changed.
    std::function<void()> DevicesChanged = [] {};
};

} // namespace platform
