// A formatted text as plain data, between RTF and whoever shows it. Positions and lengths are in UTF-16
// units.
#pragma once

#include "base/text.h"

#include <cstdint>
#include <string>
#include <vector>

namespace rtf {

using base::Text;
using base::TextView;

// Units of the text that are no letters.
inline constexpr char16_t lineBreak = u'\u2028'; // a new line inside of a paragraph
inline constexpr char16_t pageBreak = u'\u000C';
inline constexpr char16_t anchorUnit = u'\uFFFC'; // stands for a kept range, see Run::kept

inline constexpr std::uint32_t none = 0xFFFFFFFF;

inline constexpr int symbolCharset = 2;

// A type face by name.
struct Font {
    Text name;
    int charset = 0; // number of the Windows character set, 0 to 255

    bool operator==(const Font&) const = default;
};

// A colour, or the one that the reader's system takes by itself.
struct Colour {
    bool automatic = true;
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    bool operator==(const Colour&) const = default;
};

enum class Raised : std::uint8_t { No, Super, Sub };
enum class Alignment : std::uint8_t { Left, Right, Centre, Justified };

// How letters look.
struct CharFormat {
    std::uint32_t font = 0;    // index in Document::fonts
    std::uint32_t link = none; // index in Document::links
    std::uint16_t size = 24;   // half-points, 1 to 3276
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strike = false;
    bool hidden = false;
    bool capitals = false;
    bool smallCapitals = false;
    Raised raised = Raised::No;
    Colour colour;
    Colour background;

    bool operator==(const CharFormat&) const = default;
};

// How a paragraph stands. Measures are twips.
struct ParagraphFormat {
    Alignment alignment = Alignment::Left;
    bool bullet = false;
    bool pageBreakBefore = false; // it begins on a new page
    std::int32_t leftIndent = 0;
    std::int32_t rightIndent = 0;
    std::int32_t firstIndent = 0; // of the first line, relative to leftIndent
    std::int32_t spaceBefore = 0;
    std::int32_t spaceAfter = 0;
    std::string list; // words of RTF that make the paragraph an item of a list; dropped with the bullet
    std::string kept; // words of RTF that the editor does not show: tab stops, style, line spacing

    bool operator==(const ParagraphFormat&) const = default;
};

// A stretch of one format within a paragraph.
struct Run {
    std::uint32_t length = 0;  // UTF-16 units
    std::uint32_t format = 0;  // index in Document::formats
    std::uint32_t kept = none; // index in Document::kept, when the run is the anchor of it: length 1 then

    bool operator==(const Run&) const = default;
};

// The runs follow each other in Document::runs. A paragraph without text has one run of no length, whose
// format is that of what is typed there.
struct Paragraph {
    std::uint32_t length = 0;     // UTF-16 units, without the paragraph's end
    std::uint32_t runs = 0;       // how many, at least 1
    std::uint32_t format = 0;     // index in Document::paragraphFormats
    std::uint32_t section = none; // index in Document::sections, when the paragraph begins one

    bool operator==(const Paragraph&) const = default;
};

// A part of the document with a page layout of its own, kept as RTF.
struct Section {
    std::string words;
    std::string headers; // groups of headers and footers

    bool operator==(const Section&) const = default;
};

// A font under the number by which kept ranges call it.
struct NumberedFont {
    std::int32_t number = 0;
    Font font;

    bool operator==(const NumberedFont&) const = default;
};

// What kept ranges take from the tables of the file that they came from.
struct KeptTables {
    int codePage = 1252;
    std::int32_t defaultFont = 0; // number, not index
    std::vector<NumberedFont> fonts;
    std::vector<Colour> colours;

    bool operator==(const KeptTables&) const = default;
};

// The text is in one piece, without paragraph ends; paragraphs and runs cut it by their lengths. Fonts,
// formats and links stand in the order of their first use, so that two documents are equal when they look
// alike.
struct Document {
    Text text;
    std::vector<Run> runs;
    std::vector<Paragraph> paragraphs; // at least one, once read
    // A piece of text may stop within its last paragraph or take the end with it, which matters when it is
    // pasted. A whole document ends its last paragraph; an empty one behind that end is not there.
    bool lastParagraphEnds = false;

    std::vector<CharFormat> formats;
    std::vector<ParagraphFormat> paragraphFormats;
    std::vector<Font> fonts;
    std::vector<Text> links; // "#name" for a place in the document itself

    std::vector<std::string> kept; // RTF of pictures, objects, footnotes: complete groups, 7-bit ASCII
    std::vector<Section> sections; // the first begins with the first paragraph
    std::string pageWords;         // RTF words for the paper
    std::string head;              // RTF groups: style sheet, list tables, information
    KeptTables keptTables;

    bool operator==(const Document&) const = default;
};

// What can be read: paragraphs parted by "\n", as are lines within one; page breaks too. Anchors and hidden
// text are left out.
Text plainText(const Document& document);

} // namespace rtf
