#pragma once

#include "app/desktop.h"
#include "app/editor_room.h"
#include "app/transcript_menu.h"
#include "lang/words.h"
#include "safety/earlier_versions.h"
#include "safety/notices.h"
#include "safety/quiet_line.h"
#include "safety/what_happened.h"

namespace app {

// What the safety net shows: the quiet line, the lists of earlier versions and of what happened.
class SafetyWindows {
public:
    // What they show and change.
    struct Parts {
        safety::Notices& notices;
        safety::Archive& archive;
        safety::Options& options;
        lang::Words& words;
        const base::TextFiles& files;
    };

    SafetyWindows(Desktop& desktop, player::Form1& form1, EditorRoom& editor, TranscriptMenu& menu,
                  Parts parts);

    // The user changed the options.
    std::function<void()>& OptionsChanged() { return earlierVersions_.OptionsChanged; }

    // The windows go out of sight when the program ends.
    void leave();

private:
    // Puts a window over the editor, a step from its corner: the player above stays on top.
    void placeOverEditor(controls::Window& window) const;

    player::Form1& form1_;
    editor::Form2& form2_;
    safety::QuietLine quietLine_;
    safety::WhatHappened whatHappened_;
    safety::EarlierVersions earlierVersions_;
};

} // namespace app
