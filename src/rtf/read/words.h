// The control words that the parser handles, and their effects.
#pragma once

#include <cstdint>
#include <string_view>
#include <variant>

namespace rtf {

// Character formats.
enum class LetterWord : std::uint8_t {
    Mark, // sets or clears the Marks bit of the argument
    NoUnderline,
    Plain,
    FontNumber,
    FontSize,
    ColourIndex,
    BackgroundIndex,
    Raise, // argument: Raised
};

// Paragraph formats.
enum class ParagraphWord : std::uint8_t {
    Defaults,
    Align,  // argument: Alignment
    Indent, // argument: Measure
    PageBreakBefore,
    Kept,
    List,
    ListLevel,
};

enum class TextWord : std::uint8_t {
    Unit, // argument: the unit that the control word represents
    Unicode,
    FallbackLength,
    ParagraphEnd,
    SectionEnd,
    CellEnd,
    RowEnd,
    NoteMark, // before a footnote
};

enum class DocumentWord : std::uint8_t {
    SectionDefaults,
    Section,
    Page,
    CodePage, // argument: the code page, or 0 if the control word's number is the code page
    DefaultFont,
    // Tables of fonts and colours
    FontCharset,
    FontCodePage,
    ColourPart, // argument: 0 red, 1 green, 2 blue
    // Old lists
    OldBullet,
    OldNumber,
};

enum Marks : std::uint8_t {
    Bold = 1,
    Italic = 2,
    Underline = 4,
    Strike = 8,
    Hidden = 16,
    Capitals = 32,
    SmallCapitals = 64,
};

enum class Measure : std::uint8_t { Left, Right, First, Before, After };

enum class Destination : std::uint8_t {
    Body,
    Skipped,
    FontTable,
    ColourTable,
    Field,
    FieldInstruction,
    FieldResult,
    ListLabel,
    OldList,
    Alternatives, // the same text twice, without and with Unicode
    UnicodeAlternative,
    KeptHere,   // kept range with a position in the text
    KeptBefore, // belongs to the following kept range
    KeptBehind, // belongs to the preceding kept range, if there is one
    KeptHeader, // of the section
    KeptHead,   // of the document
    Moments,    // the program's own, see Document::moments
};

// The effect of a control word: none, one of the above, or the destination of the rest of the group.
using Action = std::variant<std::monostate, LetterWord, ParagraphWord, TextWord, DocumentWord, Destination>;

// A control word with its effect.
struct KnownWord {
    std::string_view name;
    Action action;
    std::uint16_t argument = 0;
};

// Looks up a control word; the result has no action if the parser ignores that word.
const KnownWord& findWord(std::string_view name);

} // namespace rtf
