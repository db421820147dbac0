// Exports of the formatted text.
#pragma once

#include "rtf/document.h"

#include <string>

namespace drafts {

// What a form could not hold, so that the user can be told.
struct Losses {
    bool letters = false;    // fonts, sizes, colours, underlines
    bool paragraphs = false; // alignment, indents, spaces
    bool pictures = false;   // they have no place, or are in a format that the form does not know
    bool objects = false;    // fields, footnotes and the like
    bool headers = false;    // headers, footers, sections

    bool operator==(const Losses&) const = default;
};

struct Exported {
    std::string bytes;
    Losses losses;
};

// Bold, italic, strike-through, bullets and links; hidden text is left out.
Exported markdown(const rtf::Document& document);

// Office Open XML, with all that the editor shows.
Exported docx(const rtf::Document& document);

} // namespace drafts
