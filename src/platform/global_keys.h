// The port to the keyboard while any other program has it.
#pragma once

#include "base/text.h"

#include <functional>
#include <vector>

namespace platform {

// Whether a combination of keys is this program's.
enum class KeyHold {
    Held,
    Taken,   // another program has it
    Unknown, // there is no such key on the keyboard
};

// Combinations of keys that reach this program whatever program is in front, and texts typed into that
// program. A combination is written as "Ctrl+Alt+Space" or "Meta+F5". Events come from the event loop, never
// from within a call.
class GlobalKeys {
public:
    GlobalKeys() = default;
    GlobalKeys(const GlobalKeys&) = delete;
    GlobalKeys& operator=(const GlobalKeys&) = delete;
    virtual ~GlobalKeys() = default;

    // Takes these combinations and releases all others. The result has one entry for each.
    virtual std::vector<KeyHold> take(const std::vector<base::Text>& combinations) = 0;

    // Types a text into the program in front, once the user has let go of the modifier keys. Calls NotTyped
    // if that is not possible.
    virtual void type(base::TextView text) = 0;

    // Why keys cannot be taken at all, in the system's words; empty if they can.
    virtual base::Text failure() const = 0;

    // A combination was pressed or released: its index in the last list. A held key is reported once.
    std::function<void(std::size_t index, bool pressed)> Moved = [](std::size_t, bool) {};
    // Another keyboard layout has changed which combinations are held.
    std::function<void(const std::vector<KeyHold>&)> Changed = [](const std::vector<KeyHold>&) {};
    // This text could not be typed.
    std::function<void(const base::Text& text)> NotTyped = [](const base::Text&) {};
};

} // namespace platform
