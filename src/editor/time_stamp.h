#pragma once

#include "editor/form2.h"
#include "platform/media_player.h"

namespace editor {

// Inserts the player's position into the text.
class TimeStamp {
public:
    TimeStamp(Form2& form, const platform::MediaPlayer& player);

    // Replaces the selection by "[hh:mm:ss] "; does nothing for a position too long for hh:mm:ss.
    void mnuTimeStamp_Click();

private:
    Form2& form_;
    const platform::MediaPlayer& player_;
};

} // namespace editor
