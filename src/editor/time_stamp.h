#pragma once

#include "editor/form2.h"
#include "platform/media_player.h"

namespace editor {

// Writes the player's position into the text.
class TimeStamp {
public:
    TimeStamp(Form2& form, const platform::MediaPlayer& player);

    // "[hh:mm:ss] " in the place of the selection; nothing for a position that hh:mm:ss cannot hold.
    void mnuTimeStamp_Click();

private:
    Form2& form_;
    const platform::MediaPlayer& player_;
};

} // namespace editor
