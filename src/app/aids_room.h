#pragma once

#include "aids/abbreviation_file.h"
#include "aids/abbreviations_command.h"
#include "aids/completion.h"
#include "aids/expansion.h"
#include "aids/figures_command.h"
#include "aids/typed_signs.h"
#include "aids/typing_commands.h"
#include "aids/typing_options.h"
#include "aids/worklog.h"
#include "aids/zoom.h"
#include "app/desktop.h"
#include "app/editor_room.h"
#include "app/options_file.h"
#include "app/speaker_room.h"
#include "app/transcript_menu.h"
#include "safety/notices.h"

#include <functional>

namespace app {

// What saves keys and slips while the user types, and the figures of the work: abbreviations, words that are
// offered, signs, the size of the view, the worklog.
class AidsRoom {
public:
    struct Parts {
        OptionsFile& options;
        lang::Words& words;
        safety::Notices& notices;
        SpeakerRoom& speakers;
    };

    AidsRoom(Desktop& desktop, player::Form1& form1, EditorRoom& editor, TranscriptMenu& menu,
             const Parts& parts);

    // The start is over.
    void start();
    // Keeps the worklog until the disk has it.
    void flush();
    // The exit goes.
    void leave();

    // The user changed an option.
    std::function<void()> OptionsChanged = [] {};

private:
    void followOptions(OptionsFile& options);
    void followText();
    void followWork(safety::Notices& notices);
    void showWindows(Desktop& desktop);
    base::Text stamp() const;
    aids::Worklog::Place place() const;

    player::Form1& form1_;
    EditorRoom& editor_;
    platform::Worker& disk_;
    aids::TypingOptions typing_;
    aids::AbbreviationFile abbreviations_;
    aids::AbbreviationsCommand list_;
    aids::Expansion expansion_;
    aids::TypedSigns signs_;
    aids::Completion completion_;
    aids::TypingCommands commands_;
    aids::Zoom zoom_;
    controls::Timer saves_; // the size of the view, once the wheel rests
    aids::WorklogFile worklogFile_;
    aids::Worklog worklog_;
    aids::FiguresCommand figures_;
};

} // namespace app
