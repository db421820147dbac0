#pragma once

#include "app/desktop.h"
#include "app/editor_room.h"
#include "app/options_file.h"
#include "app/transcript_menu.h"
#include "drafts/open_draft.h"
#include "lang/words.h"
#include "safety/notices.h"

namespace app {

// Drafts on their way into the editor and transcripts on their way out of it.
class DraftRoom {
public:
    // The data that they use.
    struct Parts {
        OptionsFile& options;
        lang::Words& words;
        safety::Notices& notices;
    };

    DraftRoom(Desktop& desktop, player::Form1& form1, EditorRoom& editor, TranscriptMenu& menu, Parts parts);

    // The exit goes.
    void leave() { openDraft_.stop(); }

private:
    void show(const drafts::Transcript& transcript);

    player::Form1& form1_;
    EditorRoom& editor_;
    drafts::Options options_;
    drafts::OpenDraft openDraft_;
};

} // namespace app
