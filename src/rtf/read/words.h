// The words of RTF that the reader acts on, and what each asks for.
#pragma once

#include <cstdint>
#include <string_view>
#include <variant>

namespace rtf {

// The look of letters.
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

// The stand of a paragraph.
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
    Unit, // argument: the unit that the word stands for
    Unicode,
    FallbackLength,
    ParagraphEnd,
    SectionEnd,
    CellEnd,
    RowEnd,
    NoteMark, // in front of a footnote
};

enum class DocumentWord : std::uint8_t {
    SectionDefaults,
    Section,
    Page,
    CodePage, // argument: the page, 0 when the number of the word tells it
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
    Alternatives, // the same twice: for readers without and with Unicode
    UnicodeAlternative,
    KeptHere,   // kept range with a place in the text
    KeptBefore, // goes with the kept range that follows
    KeptBehind, // goes with the kept range in front of it, if there is one
    KeptHeader, // of the section
    KeptHead,   // of the document
};

// Nothing, or one of the words above, or where the rest of the group goes.
using Action = std::variant<std::monostate, LetterWord, ParagraphWord, TextWord, DocumentWord, Destination>;

// A word with what it asks for.
struct KnownWord {
    std::string_view name;
    Action action;
    std::uint16_t argument = 0;
};

// Without an action for a word that the reader ignores.
const KnownWord& findWord(std::string_view name);

} // namespace rtf
