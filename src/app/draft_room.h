#pragma once

#include "app/desktop.h"
#include "app/editor_room.h"
#include "app/moment_room.h"
#include "app/options_file.h"
#include "app/recogniser_room.h"
#include "app/transcript_menu.h"
#include "drafts/export.h"
#include "drafts/open_draft.h"
#include "editor/doubts.h"
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
        MomentRoom& moments;
    };

    DraftRoom(Desktop& desktop, player::Form1& form1, EditorRoom& editor, TranscriptMenu& menu, Parts parts);

    // The options were read.
    void start() {
        export_.start();
        recognisers_.start();
    }
    // The exit goes.
    void leave();

    editor::Doubts& doubts() { return doubts_; }

    // The user changed an option.
    std::function<void()>& OptionsChanged() { return export_.OptionsChanged; }

private:
    void show(const drafts::Transcript& transcript);

    player::Form1& form1_;
    EditorRoom& editor_;
    drafts::Options options_;
    editor::DoubtOptions doubtOptions_;
    drafts::OpenDraft openDraft_;
    RecogniserRoom recognisers_;
    drafts::Export export_;
    editor::Doubts doubts_;
};

} // namespace app
