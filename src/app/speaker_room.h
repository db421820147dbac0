#pragma once

#include "app/desktop.h"
#include "app/editor_room.h"
#include "app/transcript_menu.h"
#include "editor/speaker_commands.h"

namespace app {

// The speakers of the transcript: their commands, their window, and how names are told from other words.
class SpeakerRoom {
public:
    SpeakerRoom(Desktop& desktop, player::Form1& form1, EditorRoom& editor, TranscriptMenu& menu,
                lang::Words& words);

    // The speaker at the caret; empty for none.
    base::Text atCaret() { return speakers_.atCaret(); }
    // The exit goes.
    void leave() { commands_.leave(); }

private:
    editor::Speakers speakers_;
    editor::SpeakerCommands commands_;
};

} // namespace app
