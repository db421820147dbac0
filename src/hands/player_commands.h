#pragma once

#include "hands/commands.h"
#include "platform/clipboard.h"
#include "platform/global_keys.h"
#include "player/form1.h"

#include <functional>

namespace hands {

// Does the commands, by the routines of the player's buttons and menus. Without an open recording, they do
// nothing.
class PlayerCommands {
public:
    PlayerCommands(player::Form1& form, platform::Clipboard& clipboard, platform::GlobalKeys& keys);

    void run(Command command);
    // Of PlayWhileHeld.
    void release();

    // The time could not be typed, and is on the clipboard instead.
    std::function<void()> NotTyped = [] {};

private:
    void copyTime(const base::Text& text);

    player::Form1& form_;
    platform::Clipboard& clipboard_;
    platform::GlobalKeys& keys_;
};

} // namespace hands
