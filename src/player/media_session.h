#pragma once

#include "player/companions.h"
#include "player/form1.h"
#include "player/position_display.h"
#include "player/transport.h"

namespace player {

// Starts and ends the session with one media file.
class MediaSession {
public:
    MediaSession(Form1& form, Transport& transport, PositionDisplay& display, Companions& companions);

    // Loads the file and starts it without questions or messages. If the file does not exist, the commands
    // are enabled anyway and act on the media that the player still holds.
    void vai(base::TextView path);

    // Closes the file and returns to the state without media.
    void mnuChiudi_Click();

private:
    void enableCommands(bool enabled);

    Form1& form_;
    Transport& transport_;
    PositionDisplay& display_;
    Companions& companions_;
};

} // namespace player
