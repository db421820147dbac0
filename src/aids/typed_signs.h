#pragma once

#include "aids/typing_options.h"
#include "editor/form2.h"
#include "editor/undo_redo.h"
#include "lang/words.h"

namespace aids {

// The quotation marks and the dash of a language.
struct Signs {
    base::Text open;  // with the blank behind it that the language wants
    base::Text close; // likewise
    base::Text openSingle;
    base::Text closeSingle;
    base::Text dash;

    // From these five, separated by blanks; the English ones if it is not that.
    static Signs of(base::TextView row);
};

// What is written for one typed sign: in the place of `removed` units before the caret.
struct TypedSign {
    std::int32_t removed = 0; // 0: it stays as typed
    base::Text inserted;
};

// The quotation mark or apostrophe for a straight one that was typed behind these letters of the paragraph,
// which do not include it.
TypedSign quotationFor(char16_t straight, base::TextView before, const Signs& signs);

// Writes the quotation marks of the program's language for straight ones, and a dash for two hyphens. One
// undo restores what was typed.
class TypedSigns {
public:
    TypedSigns(editor::Form2& form, editor::UndoRedo& text, const TypingOptions& options,
               const lang::Words& words)
        : form_(form), text_(text), options_(options), words_(words) {}

    // The user has typed these letters, and the caret is behind them.
    void typed(base::TextView inserted);

private:
    Signs signs() const;
    void replace(const TypedSign& sign);

    editor::Form2& form_;
    editor::UndoRedo& text_;
    const TypingOptions& options_;
    const lang::Words& words_;
};

} // namespace aids
