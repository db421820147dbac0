#pragma once

#include "aids/long_words.h"
#include "aids/typing_options.h"
#include "controls/timer.h"
#include "editor/form2.h"
#include "editor/undo_redo.h"

namespace aids {

// Offers the rest of a long word of the document behind the caret at the end of a paragraph, once three
// letters of it are typed. Tab takes it.
class Completion {
public:
    Completion(editor::Form2& form, editor::UndoRedo& text, const TypingOptions& options,
               platform::EventLoop& loop);

    // The option has changed.
    void apply();
    void leave() { reads_.setInterval(0); }
    // Reads the next part of the text, which the timer does by itself.
    void readOn();
    void changed(const editor::SnapshotText& before, const editor::SnapshotText& after,
                 const platform::TextChange& change);
    // The user has typed these letters, and the caret is behind them.
    void typed(base::TextView inserted);
    // True if the key was for the offer: Tab takes it, Escape declines it.
    bool takes(const platform::KeyEvent& key);

private:
    void decline();

    editor::Form2& form_;
    editor::UndoRedo& text_;
    const TypingOptions& options_;
    controls::Timer reads_;
    LongWords words_;
    bool follows_ = false;
    base::Text offered_; // behind the caret at this position of a text of this length
    std::int32_t place_ = 0;
    std::int32_t length_ = 0;
};

} // namespace aids
