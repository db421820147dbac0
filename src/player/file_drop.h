#pragma once

#include "platform/dialogs.h"
#include "player/companions.h"
#include "player/form1.h"
#include "player/media_session.h"

namespace player {

// Plays a file dropped on the player window through `vai` only: title, bookmarks and recent list stay those
// of the file opened last.
class FileDrop {
public:
    FileDrop(Form1& form, MediaSession& session, platform::Dialogs& dialogs, Companions& companions);

    // Makes the window accept drops, from its start until the exit.
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
