#pragma once

#include "platform/dialogs.h"
#include "player/companions.h"
#include "player/form1.h"
#include "player/media_session.h"

namespace player {

// A file dropped on the player window plays by the short road: title, marks and recent list stay those of the
// file that was opened last.
class FileDrop {
public:
    FileDrop(Form1& form, MediaSession& session, platform::Dialogs& dialogs, Companions& companions);

    // From the start of the window on it takes drops, until the exit.
    void install();
    void remove();

    void GotADrop(base::TextView path);

private:
    void play(const base::Text& path);

    Form1& form_;
    MediaSession& session_;
    platform::Dialogs& dialogs_;
    Companions& companions_;
};

} // namespace player
