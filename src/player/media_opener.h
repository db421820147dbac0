#pragma once

#include "platform/dialogs.h"
#include "player/companions.h"
#include "player/form1.h"
#include "player/media_session.h"
#include "player/settings.h"

namespace player {

// Opens a media file completely: question, checks, bookmarks, recent list; then the editor gets the focus.
class MediaOpener {
public:
    MediaOpener(Form1& form, MediaSession& session, platform::Dialogs& dialogs, Settings& settings,
                Companions& companions);

    // Opens the file at this path; if it is empty, asks the user for one. A recent file's caption is its
    // path.
    void ApriMedia(base::TextView path);

    // The skin's open button.
    void Image3_Click();

private:
    base::Text askForMedia();
    // Opens a file that has passed the checks and that the player can read.
    void openWhole(const base::Text& chosen);

    Form1& form_;
    MediaSession& session_;
    platform::Dialogs& dialogs_;
    Settings& settings_;
    Companions& companions_;
};

} // namespace player
