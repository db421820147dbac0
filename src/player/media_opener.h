#pragma once

#include "platform/dialogs.h"
#include "player/companions.h"
#include "player/form1.h"
#include "player/media_session.h"
#include "player/settings.h"

namespace player {

// The full open of a media file: question, checks, marks, recent list, and the keyboard back to the editor.
class MediaOpener {
public:
    MediaOpener(Form1& form, MediaSession& session, platform::Dialogs& dialogs, Settings& settings,
                Companions& companions);

    // Opens the file at this path; the empty text asks the user for one. Each recent file opens by its own
    // caption.
    void ApriMedia(base::TextView path);

    // The open button of the skin.
    void Image3_Click();

private:
    base::Text askForMedia();
    // What follows on the checks, with a file that the player understands.
    void openWhole(const base::Text& chosen);

    Form1& form_;
    MediaSession& session_;
    platform::Dialogs& dialogs_;
    Settings& settings_;
    Companions& companions_;
};

} // namespace player
