#pragma once

#include "base/text.h"

#include <functional>

namespace player {

// What the player asks of the windows and rooms around it.
class Companions {
public:
    virtual ~Companions() = default;

    // Gives the keyboard back to the editor, at the end of every player command.
    virtual void TornaAllEditor() = 0;
    // Places the editor under the player, or under the marks when the file has some.
    virtual void PosizionaEditor() = 0;
    // Writes the texts of the language table to the windows around the player.
    virtual void applyLanguage() = 0;

    // Offers the time stamp in the editor, or withdraws it.
    virtual void enableTimeStamp(bool enabled) = 0;

    // Saves the marks of the file that is left and forgets them.
    virtual void leaveBookmarks() = 0;
    // Reads the marks of the file at this path and shows them; true when the file has marks of its own.
    virtual bool openBookmarks(base::TextView mediaPath) = 0;
    // Takes the window of the marks away.
    virtual void unloadForm3() = 0;

    // Puts a file that was opened at the head of the recent ones.
    virtual void rememberMedia(base::TextView path) = 0;
    // True for the file that the recorder writes to.
    virtual bool isRecordingTo(base::TextView path) = 0;
    // Calls `play` with the file to play for this one: the repaired copy of a recording that a crash cut off,
    // else itself. That is at once, but for a copy that takes long; one that the user gives up, or that is
    // overtaken by another file, is never played.
    virtual void wholeRecording(base::TextView path, std::function<void(const base::Text&)> play) = 0;
};

} // namespace player
