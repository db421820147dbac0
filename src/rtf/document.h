// A formatted text as plain data, independent of RTF and of any display. Positions and lengths are UTF-16
// units.
#pragma once

#include "base/text.h"

#include <cstdint>
#include <string>
#include <vector>

namespace rtf {

using base::Text;
using base::TextView;

// Units of the text with a special meaning.
inline constexpr char16_t lineBreak = u'\u2028'; // a line break inside a paragraph
inline constexpr char16_t pageBreak = u'\u000C';
inline constexpr char16_t anchorUnit = u'\uFFFC'; // represents a kept range, see Run::kept

inline constexpr std::uint32_t none = 0xFFFFFFFF;

inline constexpr int symbolCharset = 2;

// A font by name.
struct Font {
    Text name;
    int charset = 0; // number of the Windows character set, 0 to 255

    bool operator==(const Font&) const = default;
};

// A colour, or the reader's default colour.
struct Colour {
    bool automatic = true;
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    bool operator==(const Colour&) const = default;
};

enum class Raised : std::uint8_t { No, Super, Sub };
enum class Alignment : std::uint8_t { Left, Right, Centre, Justified };

// Character formats.
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

// Paragraph formats. Measures are twips.
struct ParagraphFormat {
    Alignment alignment = Alignment::Left;
    bool bullet = false;
    bool pageBreakBefore = false; // starts on a new page
    std::int32_t leftIndent = 0;
    std::int32_t rightIndent = 0;
    std::int32_t firstIndent = 0; // of the first line, relative to leftIndent
    std::int32_t spaceBefore = 0;
    std::int32_t spaceAfter = 0;
    std::string list; // control words of the list that the paragraph belongs to; dropped with the bullet
    std::string kept; // control words that the editor does not show: tab stops, style, line spacing

    bool operator==(const ParagraphFormat&) const = default;
};

// A part of a paragraph with uniform format.
struct Run {
    std::uint32_t length = 0; // UTF-16 units
    std::uint32_t format = 0; // index in Document::formats
    std::uint32_t kept =
        none; // index in Document::kept if the run is a kept range's anchor; its length is 1 then

    bool operator==(const Run&) const = default;
};

// The runs of all paragraphs are stored consecutively in Document::runs. An empty paragraph has one run of
// length 0, whose format applies to text typed there.
struct Paragraph {
    std::uint32_t length = 0;     // UTF-16 units, without the paragraph end
    std::uint32_t runs = 0;       // number of runs, at least 1
    std::uint32_t format = 0;     // index in Document::paragraphFormats
    std::uint32_t section = none; // index in Document::sections if the paragraph starts a section

    bool operator==(const Paragraph&) const = default;
};

// A part of the document with its own page layout, kept as RTF.
struct Section {
    std::string words;
    std::string headers; // RTF groups of headers and footers

    bool operator==(const Section&) const = default;
};

// A font with the number by which kept ranges refer to it.
struct NumberedFont {
    std::int32_t number = 0;
    Font font;

    bool operator==(const NumberedFont&) const = default;
};

// The entries of the original file's tables that kept ranges refer to.
struct KeptTables {
    int codePage = 1252;
    std::int32_t defaultFont = 0; // number, not index
    std::vector<NumberedFont> fonts;
    std::vector<Colour> colours;

    bool operator==(const KeptTables&) const = default;
};

// A document. The text is contiguous, without paragraph ends; the lengths of paragraphs and runs divide it.
// Fonts, formats and links are ordered by first use, so two documents with the same contents compare equal.
struct Document {
    Text text;
    std::vector<Run> runs;
    std::vector<Paragraph> paragraphs; // at least one after reading
    // False if the text stops inside its last paragraph, true if it includes that paragraph's end; this
    // matters when pasting. A whole document ends its last paragraph; there is no empty paragraph after that
    // end.
    bool lastParagraphEnds = false;

    std::vector<CharFormat> formats;
    std::vector<ParagraphFormat> paragraphFormats;
    std::vector<Font> fonts;
    std::vector<Text> links; // "#name" for a bookmark in the document itself

    std::vector<std::string>
        kept; // kept ranges: RTF of pictures, objects, footnotes; complete groups, 7-bit ASCII
    std::vector<Section> sections; // the first one starts with the first paragraph
    std::string pageWords;         // control words of the page settings
    std::string head;              // RTF groups: style sheet, list tables, information
    KeptTables keptTables;
    std::string moments; // of the words, as ASCII letters and digits: a group that other programs skip

    bool operator==(const Document&) const = default;
};

// The readable text, with "\n" for paragraph ends, line breaks and page breaks. Omits anchors and hidden
// text.
Text plainText(const Document& document);

} // namespace rtf
