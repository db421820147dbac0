#pragma once

#include "app/desktop.h"
#include "app/editor_room.h"
#include "app/growing_draft.h"
#include "app/options_file.h"
#include "app/time_transcript.h"
#include "app/transcript_menu.h"
#include "drafts/make_draft.h"
#include "lang/words.h"
#include "safety/notices.h"

namespace app {

// The commands that need a recogniser: "Make a draft..." and "Time this transcript...".
class RecogniserRoom {
public:
    // The data that they use.
    struct Parts {
        OptionsFile& options;
        const drafts::Options& draftOptions;
        lang::Words& words;
        safety::Notices& notices;
    };

    RecogniserRoom(Desktop& desktop, player::Form1& form1, EditorRoom& editor, Parts parts);

    // The commands for the menu.
    std::vector<controls::MenuItem*> commands() { return {&mnuMakeDraft_, &mnuTimeTranscript_}; }

    // True while words of a draft are being inserted: the change of the text is not the user's.
    bool inserts() const { return draft_.inserts(); }

    // The start is over.
    void start();
    // The exit goes.
    void leave() { make_.leave(); }

    // The user changed an option.
    std::function<void()>& OptionsChanged() { return make_.OptionsChanged(); }

private:
    player::Form1& form1_;
    EditorRoom& editor_;
    controls::MenuItem mnuMakeDraft_;
    controls::MenuItem mnuTimeTranscript_;
    drafts::RecogniserOptions options_;
    GrowingDraft draft_;
    TimeTranscript times_;
    drafts::MakeDraft make_;
};

} // namespace app
