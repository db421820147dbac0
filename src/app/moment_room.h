#pragma once

#include "app/desktop.h"
#include "app/editor_room.h"
#include "app/options_file.h"
#include "app/transcript_menu.h"
#include "editor/follow_sound.h"
#include "editor/stamp_commands.h"
#include "editor/word_sound.h"
#include "moments/last_positions.h"

#include <functional>

namespace app {

// The moments of the words, between the editor and the player: their commands, and where the user stopped in
// each recording.
class MomentRoom {
public:
    MomentRoom(Desktop& desktop, player::Form1& form1, EditorRoom& editor, TranscriptMenu& menu,
               OptionsFile& options);

    // The start is over.
    void start();
    // The exit goes.
    void leave();

    // The user changed an option.
    std::function<void()>& OptionsChanged() { return follow_.OptionsChanged; }

private:
    std::optional<std::int32_t> heard() const;
    bool isOpen() const;
    bool playFrom(std::int32_t ms);
    void watch();
    void goOn();

    player::Form1& form1_;
    EditorRoom& editor_;
    editor::SoundOptions soundOptions_;
    editor::WordSound words_;
    editor::FollowSound follow_;
    editor::StampCommands stamps_;
    controls::MenuItem mnuGoOn_;
    moments::LastPositions positions_;
    controls::Timer watch_;
    base::Text recording_;                // whose position is watched
    std::optional<std::int32_t> stopped_; // ms; where it was when the recording was opened
};

} // namespace app
