#pragma once

#include "editor/form2.h"
#include "editor/text_edits.h"
#include "editor/undo_redo.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace editor {

// A name at the head of a paragraph, in units from its beginning.
struct NameAtHead {
    std::size_t begin = 0;
    std::size_t length = 0; // without the colon; 0 for none
    std::size_t behind = 0; // where what was said begins
};

// Who speaks in the text: names and colons at the heads of paragraphs. A speaker goes on until the next name.
class Speakers {
public:
    // A speaker with the number of paragraphs, empty ones excepted.
    struct Speaker {
        base::Text name;
        int paragraphs = 0;
    };

    Speakers(Form2& form, UndoRedo& text) : form_(form), text_(text) {}

    // Finds the name in a paragraph of which the first `bold` units are bold.
    std::function<NameAtHead(base::TextView paragraph, std::size_t bold)> NameIn =
        [](base::TextView, std::size_t) { return NameAtHead(); };

    // In the order in which they appear.
    std::vector<Speaker> all();
    // The speaker at the caret; empty for none.
    base::Text atCaret();
    // Gives a speaker another name everywhere, in one step of undo. A name that does not look like one is in
    // bold, by which it is found again.
    void rename(base::TextView from, base::TextView to);
    // Gives the paragraph of the caret to a speaker; at the end of what is said, begins a paragraph for the
    // speaker instead. The paragraphs behind it stay with theirs.
    void give(base::TextView name);

private:
    struct Paragraph {
        std::int32_t begin = 0; // of what is written, behind a time stamp
        std::int32_t end = 0;
        NameAtHead name; // from `begin` on
        base::Text speaker;
        bool says = false; // there is a text besides the name
    };

    std::vector<Paragraph> paragraphs(const base::Text& text);
    // One of the paragraphs of `all`, which begins at `allBegin` in the text.
    Paragraph paragraph(base::TextView all, std::size_t begin, std::size_t end, base::TextView speaker,
                        std::int32_t allBegin = 0) const;
    std::int32_t beginOfParagraph(std::int32_t position);
    std::int32_t endOfParagraph(std::int32_t position);
    static const Paragraph* at(const std::vector<Paragraph>& all, std::int32_t position);
    static void replaceName(std::vector<TextEdit>& edits, const Paragraph& paragraph, base::TextView name);
    static TextEdit newName(std::int32_t position, base::TextView before, base::TextView name);

    Form2& form_;
    UndoRedo& text_;
};

} // namespace editor
