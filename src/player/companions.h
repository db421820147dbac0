#pragma once

#include "base/text.h"

#include <functional>

namespace player {

// The player's requests to the windows and rooms around it.
class Companions {
public:
    virtual ~Companions() = default;

    // Returns the keyboard focus to the editor; called at the end of every player command.
    virtual void TornaAllEditor() = 0;
    // Places the editor below the player, or below the bookmarks if the file has any.
    virtual void PosizionaEditor() = 0;
    // Writes the language table to the windows around the player.
    virtual void applyLanguage() = 0;

    // Enables or disables the editor's time stamp command.
    virtual void enableTimeStamp(bool enabled) = 0;

    // Saves the bookmarks of the file that is being closed and clears them.
    virtual void leaveBookmarks() = 0;
    // Reads and shows the bookmarks of the file at this path. Returns true if it has any.
    virtual bool openBookmarks(base::TextView mediaPath) = 0;
    // Hides and unloads the bookmark window.
    virtual void unloadForm3() = 0;

    // Moves an opened file to the top of the recent files.
    virtual void rememberMedia(base::TextView path) = 0;
    // True if the recorder writes to this file.
    virtual bool isRecordingTo(base::TextView path) = 0;
    // Calls `play` with the file to play instead of `path`: the repaired copy of a recording that a crash cut
    // off, otherwise `path` itself. Calls it at once, unless making the copy takes long; never calls it if
    // the user cancels the copy or another file is opened meanwhile.
    virtual void wholeRecording(base::TextView path, std::function<void(const base::Text&)> play) = 0;
};

} // namespace player
