#pragma once

#include "aids/figures.h"
#include "aids/figures_window.h"
#include "aids/worklog.h"
#include "controls/timer.h"
#include "editor/form2.h"
#include "editor/undo_redo.h"
#include "lang/words.h"

#include <functional>
#include <vector>

namespace aids {

// The command "Figures..." and its window: what the text amounts to, how far the recording is typed, and how
// fast the work goes. It follows the text while it is open.
class FiguresCommand {
public:
    FiguresCommand(editor::Form2& form2, editor::UndoRedo& text, Worklog& worklog, lang::Words& words,
                   platform::EventLoop& loop);

    controls::MenuItem& command() { return mnuFigures_; }
    // The text has changed.
    void changed() { counted_ = rests_ = false; }
    // The exit goes.
    void leave();

    // Length of the open recording in seconds; 0 for none.
    std::function<double()> Duration = [] { return 0.0; };
    // The sign before decimal places.
    std::function<base::Text()> DecimalSign = [] { return base::Text(u"."); };
    // Called once, before the window is shown for the first time: creates it on the screen.
    std::function<void(FiguresWindow&)> Load = [](FiguresWindow&) {};

    FiguresWindow form;

private:
    void open();
    void show();
    void count();
    void addText(std::vector<base::Text>& rows) const;
    void addRecording(std::vector<base::Text>& rows) const;
    void addWork(std::vector<base::Text>& rows) const;

    editor::Form2& form2_;
    editor::UndoRedo& text_;
    Worklog& worklog_;
    lang::Words& words_;
    controls::MenuItem mnuFigures_;
    controls::Timer shows_;
    bool rests_ = true;          // the text has not changed since the last tick
    bool counted_ = false;       // what follows is true
    std::int32_t selStart_ = 0;  // counted part
    std::int32_t selLength_ = 0; // 0 for the whole text
    TextFigures figures_;
    double typed_ = 0;            // seconds of the recording
    Worklog::Place place_;        // when the worklog was read
    std::vector<WorkEntry> past_; // as the worklog had it
};

} // namespace aids
