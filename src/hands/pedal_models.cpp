#include "hands/pedal_models.h"

#include <algorithm>

namespace hands {

namespace {

// Codes of the kernel's input events.
constexpr std::array numbered{0x100, 0x101, 0x102}; // the buttons 0, 1 and 2
constexpr std::array lettered{30, 48, 46};          // the keys A, B and C
constexpr std::array firstBits{0, 1, 2};
constexpr std::array noBits{-1, -1, -1};

constexpr PedalModel models[] = {
    {{0x05f3, 0x00ff}, numbered, firstBits}, // the pedal of most transcription kits, also under other names
    // Switches that type letters, until they are programmed otherwise.
    {{0x0c45, 0x7403}, lettered, noBits},
    {{0x0c45, 0x7404}, lettered, noBits},
    {{0x1a86, 0xe026}, lettered, noBits},
    {{0x3553, 0xb001}, lettered, noBits},
    {{0x413d, 0x2107}, lettered, noBits},
    {{0x5131, 0x2019}, lettered, noBits},
};

// Escape, Tab, Enter, space, the modifiers and the arrows.
constexpr int dialogKeys[] = {1, 15, 28, 29, 42, 54, 56, 57, 96, 97, 100, 103, 105, 106, 108, 125, 126};
constexpr int firstMouseButton = 0x110;
constexpr int lastMouseButton = 0x117;

} // namespace

std::span<const PedalModel> pedalModels() {
    return models;
}

bool canBePedal(const platform::PedalCode& pedal) {
    if (pedal.isBit || placeOf(pedal))
        return true;
    return (pedal.code < firstMouseButton || pedal.code > lastMouseButton) &&
           std::ranges::find(dialogKeys, pedal.code) == std::ranges::end(dialogKeys);
}

std::optional<Place> placeOf(const platform::PedalCode& pedal) {
    const auto* const known = std::ranges::find(models, pedal.model, &PedalModel::model);
    if (known == std::ranges::end(models))
        return std::nullopt;
    const auto& codes = pedal.isBit ? known->bits : known->keys;
    const auto* const code = std::ranges::find(codes, pedal.code);
    return code == codes.end() ? std::nullopt : std::optional(static_cast<Place>(code - codes.begin()));
}

} // namespace hands
