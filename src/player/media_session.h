#pragma once

#include "player/companions.h"
#include "player/form1.h"
#include "player/position_display.h"
#include "player/transport.h"

namespace player {

// Begins and ends the use of one media file.
class MediaSession {
public:
    MediaSession(Form1& form, Transport& transport, PositionDisplay& display, Companions& companions);

    // Loads the file and starts it, without a question or a message. Without such a file the commands are
    // offered all the same, on whatever the player still holds.
    void vai(base::TextView path);

    // Closes the file: the state without media.
    void mnuChiudi_Click();

private:
    void enableCommands(bool enabled);

    Form1& form_;
    Transport& transport_;
    PositionDisplay& display_;
    Companions& companions_;
};

} // namespace player
