// What a pedal or a key from anywhere can do.
#pragma once

#include "base/text.h"
#include "lang/words.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace hands {

enum class Command : std::size_t {
    PlayPause,
    PlayWhileHeld,
    StepBack,
    StepForward,
    Slower,
    Faster,
    CopyTime,
    TypeTime,
};
inline constexpr std::size_t commandCount = 8;

// What holding a key or pedal does: nothing more, the command again and again, or several times at once after
// a second.
enum class Repeats { Never, Evenly, Growing };

struct CommandRow {
    std::string_view option; // name in the options file
    lang::English name;
    base::TextView key;   // the first choice; empty for none
    base::TextView pedal; // likewise
    Repeats repeats = Repeats::Never;
};

// All commands, in the order of Command.
const std::array<CommandRow, commandCount>& commands();

} // namespace hands
