#include "rtf/rtf_words.h"

#include "rtf/rtf_document.h"

#include <array>
#include <cstddef>
#include <iterator>

namespace rtf {

namespace {

using enum Action;

template <class T>
constexpr std::uint16_t as(T argument) {
    return static_cast<std::uint16_t>(argument);
}

constexpr KnownWord words[] = {
    {"b", Mark, Bold},
    {"i", Mark, Italic},
    {"strike", Mark, Strike},
    {"striked", Mark, Strike},
    {"v", Mark, Hidden},
    {"caps", Mark, Capitals},
    {"scaps", Mark, SmallCapitals},
    {"ul", Mark, Underline},
    {"uld", Mark, Underline},
    {"uldash", Mark, Underline},
    {"uldashd", Mark, Underline},
    {"uldashdd", Mark, Underline},
    {"uldb", Mark, Underline},
    {"ulhwave", Mark, Underline},
    {"ulldash", Mark, Underline},
    {"ulth", Mark, Underline},
    {"ulthd", Mark, Underline},
    {"ulthdash", Mark, Underline},
    {"ulthdashd", Mark, Underline},
    {"ulthdashdd", Mark, Underline},
    {"ulthldash", Mark, Underline},
    {"ululdbwave", Mark, Underline},
    {"ulw", Mark, Underline},
    {"ulwave", Mark, Underline},
    {"ulnone", NoUnderline},
    {"plain", Plain},
    {"f", FontNumber},
    {"fs", FontSize},
    {"cf", ColourIndex},
    {"highlight", BackgroundIndex},
    {"cb", BackgroundIndex},
    {"chcbpat", BackgroundIndex},
    {"super", Raise, as(Raised::Super)},
    {"sub", Raise, as(Raised::Sub)},
    {"nosupersub", Raise, as(Raised::No)},

    {"pard", ParagraphDefaults},
    {"ql", Align, as(Alignment::Left)},
    {"qr", Align, as(Alignment::Right)},
    {"qc", Align, as(Alignment::Centre)},
    {"qj", Align, as(Alignment::Justified)},
    {"li", Indent, as(Measure::Left)},
    {"ri", Indent, as(Measure::Right)},
    {"fi", Indent, as(Measure::First)},
    {"sb", Indent, as(Measure::Before)},
    {"sa", Indent, as(Measure::After)},
    {"ls", ListWord, 0},
    {"ilvl", ListWord, 1},
    {"s", KeptParagraphWord},
    {"tx", KeptParagraphWord},
    {"tb", KeptParagraphWord},
    {"tqr", KeptParagraphWord},
    {"tqc", KeptParagraphWord},
    {"tqdec", KeptParagraphWord},
    {"tldot", KeptParagraphWord},
    {"tlhyph", KeptParagraphWord},
    {"tlul", KeptParagraphWord},
    {"sl", KeptParagraphWord},
    {"slmult", KeptParagraphWord},
    {"keep", KeptParagraphWord},
    {"keepn", KeptParagraphWord},
    {"pagebb", KeptParagraphWord},
    {"outlinelevel", KeptParagraphWord},
    {"rtlpar", KeptParagraphWord},
    {"ltrpar", KeptParagraphWord},
    {"widctlpar", KeptParagraphWord},
    {"nowidctlpar", KeptParagraphWord},

    {"tab", Unit, u'\t'},
    {"line", Unit, lineBreak},
    {"lbr", Unit, lineBreak},
    {"page", Unit, pageBreak},
    {"column", Unit, pageBreak},
    {"emdash", Unit, 0x2014},
    {"endash", Unit, 0x2013},
    {"emspace", Unit, 0x2003},
    {"enspace", Unit, 0x2002},
    {"qmspace", Unit, 0x2005},
    {"bullet", Unit, 0x2022},
    {"lquote", Unit, 0x2018},
    {"rquote", Unit, 0x2019},
    {"ldblquote", Unit, 0x201C},
    {"rdblquote", Unit, 0x201D},
    {"zwj", Unit, 0x200D},
    {"zwnj", Unit, 0x200C},
    {"ltrmark", Unit, 0x200E},
    {"rtlmark", Unit, 0x200F},
    {"zwbo", Unit, 0x200B},
    {"zwnbo", Unit, 0x2060},
    {"u", Unicode},
    {"uc", FallbackLength},
    {"par", ParagraphEnd},
    {"sect", SectionEnd},
    {"cell", CellEnd},
    {"nestcell", CellEnd},
    {"row", RowEnd},
    {"nestrow", RowEnd},
    {"chftn", NoteMark},
    {"chatn", NoteMark},

    {"sectd", SectionDefaults},
    {"cols", SectionWord},
    {"colsx", SectionWord},
    {"linex", SectionWord},
    {"headery", SectionWord},
    {"footery", SectionWord},
    {"titlepg", SectionWord},
    {"pgwsxn", SectionWord},
    {"pghsxn", SectionWord},
    {"marglsxn", SectionWord},
    {"margrsxn", SectionWord},
    {"margtsxn", SectionWord},
    {"margbsxn", SectionWord},
    {"lndscpsxn", SectionWord},
    {"sbknone", SectionWord},
    {"sbkcol", SectionWord},
    {"sbkpage", SectionWord},
    {"sbkeven", SectionWord},
    {"sbkodd", SectionWord},
    {"pgnrestart", SectionWord},
    {"pgncont", SectionWord},
    {"pgnstarts", SectionWord},
    {"pgndec", SectionWord},
    {"pgnlcrm", SectionWord},
    {"pgnucrm", SectionWord},
    {"paperw", PageWord},
    {"paperh", PageWord},
    {"margl", PageWord},
    {"margr", PageWord},
    {"margt", PageWord},
    {"margb", PageWord},
    {"landscape", PageWord},
    {"facingp", PageWord},
    {"deftab", PageWord},
    {"viewkind", PageWord},
    {"viewscale", PageWord},
    {"ansi", CodePage, 1252},
    {"mac", CodePage, 10000},
    {"pc", CodePage, 437},
    {"pca", CodePage, 850},
    {"ansicpg", CodePage},
    {"deff", DefaultFont},

    {"fcharset", FontCharset},
    {"cpg", FontCodePage},
    {"red", ColourPart, 0},
    {"green", ColourPart, 1},
    {"blue", ColourPart, 2},
    {"pnlvlblt", OldBullet},
    {"pnlvlbody", OldNumber},
    {"pnlvl", OldNumber},

    {"fonttbl", Enter, as(Destination::FontTable)},
    {"colortbl", Enter, as(Destination::ColourTable)},
    {"field", Enter, as(Destination::Field)},
    {"fldinst", Enter, as(Destination::FieldInstruction)},
    {"fldrslt", Enter, as(Destination::FieldResult)},
    {"listtext", Enter, as(Destination::ListLabel)},
    {"pntext", Enter, as(Destination::ListLabel)},
    {"pn", Enter, as(Destination::OldList)},
    {"upr", Enter, as(Destination::Alternatives)},
    {"ud", Enter, as(Destination::UnicodeAlternative)},
    {"nesttableprops", Enter, as(Destination::Body)},
    {"pict", Enter, as(Destination::KeptHere)},
    {"shppict", Enter, as(Destination::KeptHere)},
    {"object", Enter, as(Destination::KeptHere)},
    {"shp", Enter, as(Destination::KeptHere)},
    {"shpgrp", Enter, as(Destination::KeptHere)},
    {"do", Enter, as(Destination::KeptHere)},
    {"footnote", Enter, as(Destination::KeptHere)},
    {"annotation", Enter, as(Destination::KeptHere)},
    {"atnid", Enter, as(Destination::KeptBefore)},
    {"atnauthor", Enter, as(Destination::KeptBefore)},
    {"nonshppict", Enter, as(Destination::KeptBehind)},
    {"header", Enter, as(Destination::KeptHeader)},
    {"headerl", Enter, as(Destination::KeptHeader)},
    {"headerr", Enter, as(Destination::KeptHeader)},
    {"headerf", Enter, as(Destination::KeptHeader)},
    {"footer", Enter, as(Destination::KeptHeader)},
    {"footerl", Enter, as(Destination::KeptHeader)},
    {"footerr", Enter, as(Destination::KeptHeader)},
    {"footerf", Enter, as(Destination::KeptHeader)},
    {"stylesheet", Enter, as(Destination::KeptHead)},
    {"listtable", Enter, as(Destination::KeptHead)},
    {"listoverridetable", Enter, as(Destination::KeptHead)},
    {"info", Enter, as(Destination::KeptHead)},
    {"nonesttables", Enter, as(Destination::Skipped)},
    {"xe", Enter, as(Destination::Skipped)},
    {"tc", Enter, as(Destination::Skipped)},
    {"tcn", Enter, as(Destination::Skipped)},
    {"txe", Enter, as(Destination::Skipped)},
    {"rxe", Enter, as(Destination::Skipped)},
    {"bkmkstart", Enter, as(Destination::Skipped)},
    {"bkmkend", Enter, as(Destination::Skipped)},
    {"comment", Enter, as(Destination::Skipped)},
    {"themedata", Enter, as(Destination::Skipped)},
    {"colorschememapping", Enter, as(Destination::Skipped)},
    {"latentstyles", Enter, as(Destination::Skipped)},
    {"datastore", Enter, as(Destination::Skipped)},
    {"rsidtbl", Enter, as(Destination::Skipped)},
    {"xmlnstbl", Enter, as(Destination::Skipped)},
    {"panose", Enter, as(Destination::Skipped)},
    {"falt", Enter, as(Destination::Skipped)},
    {"blipuid", Enter, as(Destination::Skipped)},
    {"leveltext", Enter, as(Destination::Skipped)},
    {"levelnumbers", Enter, as(Destination::Skipped)},
    {"pntxta", Enter, as(Destination::Skipped)},
    {"pntxtb", Enter, as(Destination::Skipped)},
    {"filetbl", Enter, as(Destination::Skipped)},
    {"revtbl", Enter, as(Destination::Skipped)},
    {"fontemb", Enter, as(Destination::Skipped)},
    {"objdata", Enter, as(Destination::Skipped)},
    {"objclass", Enter, as(Destination::Skipped)},
    {"ftnsep", Enter, as(Destination::Skipped)},
    {"ftnsepc", Enter, as(Destination::Skipped)},
    {"ftncn", Enter, as(Destination::Skipped)},
    {"aftnsep", Enter, as(Destination::Skipped)},
    {"aftnsepc", Enter, as(Destination::Skipped)},
    {"aftncn", Enter, as(Destination::Skipped)},
    {"private", Enter, as(Destination::Skipped)},
};

// An open hash table of places in the list above, since most of a file's tokens are words.
constexpr std::size_t slots = 1024;
static_assert(std::size(words) * 2 < slots);

constexpr std::size_t slotOf(std::string_view name) {
    std::uint32_t hash = 2166136261U;
    for (const char letter : name)
        hash = (hash ^ static_cast<unsigned char>(letter)) * 16777619U;
    return (hash ^ hash >> 15U) % slots;
}

constexpr auto table = [] {
    std::array<std::uint16_t, slots> places{};
    for (std::size_t word = 0; word < std::size(words); ++word) {
        std::size_t slot = slotOf(words[word].name);
        while (places[slot] != 0)
            slot = (slot + 1) % slots;
        places[slot] = static_cast<std::uint16_t>(word + 1);
    }
    return places;
}();

constexpr KnownWord unknown{};

} // namespace

const KnownWord& findWord(std::string_view name) {
    constexpr std::size_t longestName = 24;
    if (name.size() > longestName)
        return unknown;
    for (std::size_t slot = slotOf(name); table[slot] != 0; slot = (slot + 1) % slots)
        if (const KnownWord& word = words[table[slot] - 1]; word.name == name)
            return word;
    return unknown;
}

} // namespace rtf
