#pragma once

#include "aids/checked_words.h"
#include "aids/verdicts.h"
#include "controls/timer.h"
#include "editor/form2.h"
#include "editor/undo_redo.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace aids {

// Marks misspelled words in the view. Only what is painted is looked at: a word that is not known yet is
// asked about in idle time and marked when the answer comes. The word that is being typed is not marked.
class SpellingMarks {
public:
    struct Part {
        std::int32_t position = 0;
        std::int32_t length = 0;
        base::Text word;
    };

    SpellingMarks(editor::Form2& form, editor::UndoRedo& text, Verdicts& verdicts, platform::EventLoop& loop);

    // Marks words of this script from now on; without one, none.
    void show(const std::optional<Script>& script);
    // Nothing while spelling is off.
    const std::optional<Script>& script() const { return script_; }
    // The text has changed.
    void changed();
    // What counts as misspelled has changed.
    void verdictsChanged();

    // The word at this position, which may be its end; nothing for what is no word of the dictionary's
    // script.
    std::optional<Part> wordAt(std::int32_t position);
    // The same if it is marked as misspelled.
    std::optional<Part> wrongAt(std::int32_t position);

    // What counts as misspelled has changed, otherwise than by an answer of the dictionary.
    std::function<void()> Decided = [] {};

private:
    // The words that touch this part of the text, with their letters in `read`.
    std::vector<CheckedWord> wordsIn(std::int32_t begin, std::int32_t end, base::Text& read);
    void addMarks(std::vector<platform::MarkedPart>& marks, std::int32_t begin, std::int32_t end);
    bool isTyped(const CheckedWord& word, std::int32_t caret);
    void look();
    void wait();

    editor::Form2& form_;
    editor::UndoRedo& text_;
    Verdicts& verdicts_;
    controls::Timer timer_;
    std::optional<Script> script_;
    std::optional<std::int32_t> typedAt_; // the caret after the last change, until it has moved
    std::int32_t unknownBegin_ = 0;       // around the words that answers are awaited for
    std::int32_t unknownEnd_ = 0;
    bool waits_ = false; // the timer runs
};

} // namespace aids
