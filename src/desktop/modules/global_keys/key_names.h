// Combinations of keys by name, such as "Ctrl+Alt+Space", in terms of the X server.
#pragma once

#include "base/text.h"

#include <cstdint>
#include <optional>
#include <xkbcommon/xkbcommon.h>

namespace desktop {

struct KeyName {
    xkb_keysym_t symbol = 0;
    std::uint16_t modifiers = 0; // bits of an X event

    bool operator==(const KeyName&) const = default;
};

// Empty if the text is not one combination with a key that X knows.
std::optional<KeyName> keyName(base::TextView text);

// The key code of a Latin letter on a keyboard whose layout has none; 0 for other symbols.
xkb_keycode_t codeByPlace(xkb_keysym_t symbol);

} // namespace desktop
