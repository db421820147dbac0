#pragma once

#include "editor/undo_redo.h"
#include "platform/rich_text.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace editor {

// Letters that the program itself writes into the text, or takes out of it; not both, because one record of
// undo cannot hold a replacement.
struct TextEdit {
    std::int32_t position = 0;
    std::int32_t removed = 0; // UTF-16 units
    base::Text inserted{};
    // The part of `inserted` that becomes bold while the rest becomes plain; an empty part changes no format.
    std::int32_t boldBegin = 0;
    std::int32_t boldLength = 0;
    // Of the new letters; none by default, because what the program writes is not heard.
    std::optional<moments::Moment> moment{};
};

// Makes the edits, which are in the order of the text, as one step of undo.
void makeEdits(platform::RichText& rtb, UndoRedo& text, const std::vector<TextEdit>& edits);

// Replaces a word by another one, as one step of undo. The letters that differ get the format of those around
// them and the word's moment, of which there is no doubt any more.
void replaceWord(platform::RichText& rtb, UndoRedo& text, std::int32_t position, std::int32_t length,
                 base::TextView with);

} // namespace editor
