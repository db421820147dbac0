#include "hands/commands.h"

namespace hands {

using lang::operator""_en;

// The keys are those of the player's own menu, with the key that few programs use.
const std::array<CommandRow, commandCount>& commands() {
    static const std::array<CommandRow, commandCount> rows{{
        {"PlayPause", u"Play or pause"_en, u"Meta+F5", u"", Repeats::Never},
        {"PlayWhileHeld", u"Play while held"_en, u"", u"middle", Repeats::Never},
        {"StepBack", u"Step back"_en, u"Meta+F6", u"left", Repeats::Growing},
        {"StepForward", u"Step forward"_en, u"Meta+F7", u"right", Repeats::Growing},
        {"Slower", u"Slower"_en, u"Meta+F3", u"", Repeats::Evenly},
        {"Faster", u"Faster"_en, u"Meta+F4", u"", Repeats::Evenly},
        {"CopyTime", u"Copy the time"_en, u"Meta+F8", u"", Repeats::Never},
        {"TypeTime", u"Type the time"_en, u"Meta+F9", u"", Repeats::Never},
    }};
    return rows;
}

} // namespace hands
