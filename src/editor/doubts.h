#pragma once

#include "controls/timer.h"
#include "editor/form2.h"
#include "editor/undo_redo.h"
#include "lang/words.h"

#include <functional>
#include <optional>
#include <vector>

namespace editor {

// User options for doubtful words.
struct DoubtOptions {
    int percent = 50; // a word of which a recogniser was less sure is doubtful
};

// The words of which a recogniser was not sure: marks them in the view, goes from one to the next and plays
// it, and takes the user's word for one that is right.
class Doubts {
public:
    Doubts(Form2& form, UndoRedo& text, const DoubtOptions& options, lang::Words& words,
           platform::EventLoop& loop);

    std::vector<controls::MenuItem*> commands() { return {&mnuDoubts_}; }

    // The commands are in the menu, which shows the number of open doubts from now on.
    void start();
    // The exit goes.
    void leave() { count_.setInterval(0); }
    // The text has changed.
    void changed();
    // The doubtful words between two positions.
    std::vector<platform::MarkedPart> marksIn(std::int32_t begin, std::int32_t end);

    // Plays the open recording from there, in ms; false without one.
    std::function<bool(std::int32_t ms)> PlayFrom = [](std::int32_t) { return false; };
    // Called after the user has kept a doubtful word.
    std::function<void()> Kept = [] {};

private:
    struct Doubt {
        std::int32_t position = 0;
        std::int32_t length = 0;
        moments::Moment moment;
    };

    std::vector<Doubt> doubtsIn(std::int32_t begin, std::int32_t end);
    void go(const std::optional<Doubt>& doubt);
    void goToNext();
    void goToTheOneBefore();
    void keep();
    void showCount();

    controls::MenuItem mnuDoubts_;
    controls::MenuItem mnuNext_;
    controls::MenuItem mnuBefore_;
    controls::MenuItem mnuKeep_;

    Form2& form_;
    UndoRedo& text_;
    const DoubtOptions& options_;
    lang::Words& words_;
    controls::Timer count_;
};

} // namespace editor
