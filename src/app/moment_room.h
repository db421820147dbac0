#pragma once

#include "app/desktop.h"
#include "app/editor_room.h"
#include "app/options_file.h"
#include "app/transcript_menu.h"
#include "editor/follow_sound.h"
#include "editor/stamp_commands.h"
#include "editor/word_sound.h"
#include "moments/last_positions.h"
#include "safety/notices.h"

#include <functional>

namespace app {

// The moments of the words, between the editor and the player: their commands, and where the user stopped in
// each recording.
class MomentRoom {
public:
    MomentRoom(Desktop& desktop, player::Form1& form1, EditorRoom& editor, TranscriptMenu& menu,
               OptionsFile& options, safety::Notices& notices);

    // The start is over.
    void start();
    // Keeps the position until the disk has it.
    void flush();
    // The exit goes.
    void leave();

    // Plays the open recording from there; false without one.
    bool playFrom(std::int32_t ms);

    // The user changed an option.
    std::function<void()>& OptionsChanged() { return follow_.OptionsChanged; }

private:
    std::optional<std::int32_t> heard() const;
    std::optional<std::int32_t> heardByWords() const;
    bool isOpen() const;
    void watch();
    void goOn();
    void tellOther();

    player::Form1& form1_;
    EditorRoom& editor_;
    platform::Worker& disk_;
    safety::Notices& notices_;
    editor::SoundOptions soundOptions_;
    editor::WordSound words_;
    editor::FollowSound follow_;
    editor::StampCommands stamps_;
    controls::MenuItem mnuGoOn_;
    moments::LastPositions positions_;
    controls::Timer watch_;
    base::Text recording_;                // whose position is watched
    std::optional<std::int32_t> stopped_; // ms; where it was when the recording was opened
    base::Text other_;                    // the recording of the moments, told not to be the open one
};

} // namespace app
