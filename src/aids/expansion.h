#pragma once

#include "aids/abbreviations.h"
#include "aids/typing_options.h"
#include "editor/form2.h"
#include "editor/undo_redo.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace aids {

// Replaces a short form by its text when the user types what ends a word behind it: a blank, an end of a
// paragraph, punctuation. One undo restores what was typed.
class Expansion {
public:
    Expansion(editor::Form2& form, editor::UndoRedo& text, const TypingOptions& options)
        : form_(form), text_(text), options_(options) {}

    // The user has typed these letters, and the caret is behind them.
    void typed(base::TextView inserted, const Abbreviations& known);

    // An undo has run. If it has restored what was typed, the caret goes behind it, where it was.
    void undone();

    Fillings fillings;

private:
    void replace(std::int32_t end, base::TextView shortForm, const Abbreviations::Found& found);

    editor::Form2& form_;
    editor::UndoRedo& text_;
    const TypingOptions& options_;
    // The records of undo before the last expansion, and the caret then.
    struct Before {
        std::size_t records = 0;
        std::int32_t caret = 0;
    };
    std::optional<Before> before_; // nothing once the user has typed on
};

} // namespace aids
