#pragma once

#include "app/desktop.h"
#include "app/editor_room.h"
#include "app/transcript_menu.h"
#include "lang/words.h"
#include "safety/earlier_versions.h"
#include "safety/notices.h"
#include "safety/quiet_line.h"
#include "safety/what_happened.h"

#include <optional>

namespace app {

// The windows of the safety net: the quiet line, the list of earlier versions and the list of past notices.
class SafetyWindows {
public:
    // The data that they show and change.
    struct Parts {
        safety::Notices& notices;
        safety::Archive& archive;
        safety::Options& options;
        lang::Words& words;
        const base::TextFiles& files;
    };

    SafetyWindows(Desktop& desktop, player::Form1& form1, EditorRoom& editor, TranscriptMenu& menu,
                  Parts parts);

    // Called when the user has changed the options.
    std::function<void()>& OptionsChanged() { return earlierVersions_.OptionsChanged; }

    // Hides the windows when the program ends.
    void leave();

private:
    // Where the editor's text is on the screen, to within a line; none if it is hidden.
    std::optional<controls::Box> visibleText() const;
    // Places a window over the editor, offset from its corner, so that the player above stays visible.

    player::Form1& form1_;
    editor::Form2& form2_;
    safety::QuietLine quietLine_;
    safety::WhatHappened whatHappened_;
    safety::EarlierVersions earlierVersions_;
};

} // namespace app
