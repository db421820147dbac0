#pragma once

#include "aids/spelling_commands.h"
#include "app/desktop.h"
#include "app/editor_room.h"
#include "app/options_file.h"
#include "app/transcript_menu.h"
#include "safety/notices.h"

#include <functional>

namespace app {

// Spelling in the editor: the dictionaries, the marks, and the user's own words.
class SpellingRoom {
public:
    SpellingRoom(Desktop& desktop, player::Form1& form1, EditorRoom& editor, TranscriptMenu& menu,
                 OptionsFile& options, lang::Words& words, safety::Notices& notices);

    // The start is over.
    void start();
    // The exit goes.
    void leave() { commands_.leave(); }

    aids::Verdicts& verdicts() { return verdicts_; }
    aids::SpellingMarks& marks() { return marks_; }

    // The user changed an option.
    std::function<void()>& OptionsChanged() { return commands_.OptionsChanged; }

private:
    EditorRoom& editor_;
    aids::SpellingOptions options_;
    aids::OwnWords own_;
    aids::Verdicts verdicts_;
    aids::SpellingMarks marks_;
    aids::SpellingMenu menu_;
    aids::SpellingCommands commands_;
};

} // namespace app
