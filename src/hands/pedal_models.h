// The models of foot pedals that need not be learned.
#pragma once

#include "platform/pedals.h"

#include <array>
#include <optional>
#include <span>

namespace hands {

enum class Place { Left, Middle, Right };

struct PedalModel {
    platform::DeviceModel model;
    std::array<int, 3> keys{}; // left, middle, right: codes of keys, as the kernel reports them
    std::array<int, 3> bits{}; // the same on a kernel that reports no keys of this model
};

std::span<const PedalModel> pedalModels();

// False for the keys and buttons that move through a dialog, which nobody means when a pedal is asked for.
bool canBePedal(const platform::PedalCode& pedal);

// Which pedal of a known model this is.
std::optional<Place> placeOf(const platform::PedalCode& pedal);

} // namespace hands
