#include "rtf/read/words.h"

#include "rtf/document.h"

#include <array>
#include <cstddef>
#include <iterator>

namespace rtf {

namespace {

using enum LetterWord;
using enum TextWord;

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

    {"pard", ParagraphWord::Defaults},
    {"ql", ParagraphWord::Align, as(Alignment::Left)},
    {"qr", ParagraphWord::Align, as(Alignment::Right)},
    {"qc", ParagraphWord::Align, as(Alignment::Centre)},
    {"qj", ParagraphWord::Align, as(Alignment::Justified)},
    {"li", ParagraphWord::Indent, as(Measure::Left)},
    {"ri", ParagraphWord::Indent, as(Measure::Right)},
    {"fi", ParagraphWord::Indent, as(Measure::First)},
    {"sb", ParagraphWord::Indent, as(Measure::Before)},
    {"sa", ParagraphWord::Indent, as(Measure::After)},
    {"ls", ParagraphWord::List},
    {"ilvl", ParagraphWord::ListLevel},
    {"s", ParagraphWord::Kept},
    {"tx", ParagraphWord::Kept},
    {"tb", ParagraphWord::Kept},
    {"tqr", ParagraphWord::Kept},
    {"tqc", ParagraphWord::Kept},
    {"tqdec", ParagraphWord::Kept},
    {"tldot", ParagraphWord::Kept},
    {"tlhyph", ParagraphWord::Kept},
    {"tlul", ParagraphWord::Kept},
    {"sl", ParagraphWord::Kept},
    {"slmult", ParagraphWord::Kept},
    {"keep", ParagraphWord::Kept},
    {"keepn", ParagraphWord::Kept},
    {"pagebb", ParagraphWord::PageBreakBefore},
    {"outlinelevel", ParagraphWord::Kept},
    {"rtlpar", ParagraphWord::Kept},
    {"ltrpar", ParagraphWord::Kept},
    {"widctlpar", ParagraphWord::Kept},
    {"nowidctlpar", ParagraphWord::Kept},

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

    {"sectd", DocumentWord::SectionDefaults},
    {"cols", DocumentWord::Section},
    {"colsx", DocumentWord::Section},
    {"linex", DocumentWord::Section},
    {"headery", DocumentWord::Section},
    {"footery", DocumentWord::Section},
    {"titlepg", DocumentWord::Section},
    {"pgwsxn", DocumentWord::Section},
    {"pghsxn", DocumentWord::Section},
    {"marglsxn", DocumentWord::Section},
    {"margrsxn", DocumentWord::Section},
    {"margtsxn", DocumentWord::Section},
    {"margbsxn", DocumentWord::Section},
    {"lndscpsxn", DocumentWord::Section},
    {"sbknone", DocumentWord::Section},
    {"sbkcol", DocumentWord::Section},
    {"sbkpage", DocumentWord::Section},
    {"sbkeven", DocumentWord::Section},
    {"sbkodd", DocumentWord::Section},
    {"pgnrestart", DocumentWord::Section},
    {"pgncont", DocumentWord::Section},
    {"pgnstarts", DocumentWord::Section},
    {"pgndec", DocumentWord::Section},
    {"pgnlcrm", DocumentWord::Section},
    {"pgnucrm", DocumentWord::Section},
    {"paperw", DocumentWord::Page},
    {"paperh", DocumentWord::Page},
    {"margl", DocumentWord::Page},
    {"margr", DocumentWord::Page},
    {"margt", DocumentWord::Page},
    {"margb", DocumentWord::Page},
    {"landscape", DocumentWord::Page},
    {"facingp", DocumentWord::Page},
    {"deftab", DocumentWord::Page},
    {"viewkind", DocumentWord::Page},
    {"viewscale", DocumentWord::Page},
    {"ansi", DocumentWord::CodePage, 1252},
    {"mac", DocumentWord::CodePage, 10000},
    {"pc", DocumentWord::CodePage, 437},
    {"pca", DocumentWord::CodePage, 850},
    {"ansicpg", DocumentWord::CodePage},
    {"deff", DocumentWord::DefaultFont},

    {"fcharset", DocumentWord::FontCharset},
    {"cpg", DocumentWord::FontCodePage},
    {"red", DocumentWord::ColourPart, 0},
    {"green", DocumentWord::ColourPart, 1},
    {"blue", DocumentWord::ColourPart, 2},
    {"pnlvlblt", DocumentWord::OldBullet},
    {"pnlvlbody", DocumentWord::OldNumber},
    {"pnlvl", DocumentWord::OldNumber},

    {"fonttbl", Destination::FontTable},
    {"colortbl", Destination::ColourTable},
    {"field", Destination::Field},
    {"fldinst", Destination::FieldInstruction},
    {"fldrslt", Destination::FieldResult},
    {"listtext", Destination::ListLabel},
    {"pntext", Destination::ListLabel},
    {"pn", Destination::OldList},
    {"upr", Destination::Alternatives},
    {"ud", Destination::UnicodeAlternative},
    {"nesttableprops", Destination::Body},
    {"pict", Destination::KeptHere},
    {"shppict", Destination::KeptHere},
    {"object", Destination::KeptHere},
    {"shp", Destination::KeptHere},
    {"shpgrp", Destination::KeptHere},
    {"do", Destination::KeptHere},
    {"footnote", Destination::KeptHere},
    {"annotation", Destination::KeptHere},
    {"atnid", Destination::KeptBefore},
    {"atnauthor", Destination::KeptBefore},
    {"nonshppict", Destination::KeptBehind},
    {"header", Destination::KeptHeader},
    {"headerl", Destination::KeptHeader},
    {"headerr", Destination::KeptHeader},
    {"headerf", Destination::KeptHeader},
    {"footer", Destination::KeptHeader},
    {"footerl", Destination::KeptHeader},
    {"footerr", Destination::KeptHeader},
    {"footerf", Destination::KeptHeader},
    {"stylesheet", Destination::KeptHead},
    {"listtable", Destination::KeptHead},
    {"listoverridetable", Destination::KeptHead},
    {"info", Destination::KeptHead},
    {"quillmoments", Destination::Moments},
    {"nonesttables", Destination::Skipped},
    {"xe", Destination::Skipped},
    {"tc", Destination::Skipped},
    {"tcn", Destination::Skipped},
    {"txe", Destination::Skipped},
    {"rxe", Destination::Skipped},
    {"bkmkstart", Destination::Skipped},
    {"bkmkend", Destination::Skipped},
    {"comment", Destination::Skipped},
    {"themedata", Destination::Skipped},
    {"colorschememapping", Destination::Skipped},
    {"latentstyles", Destination::Skipped},
    {"datastore", Destination::Skipped},
    {"rsidtbl", Destination::Skipped},
    {"xmlnstbl", Destination::Skipped},
    {"panose", Destination::Skipped},
    {"falt", Destination::Skipped},
    {"blipuid", Destination::Skipped},
    {"leveltext", Destination::Skipped},
    {"levelnumbers", Destination::Skipped},
    {"pntxta", Destination::Skipped},
    {"pntxtb", Destination::Skipped},
    {"filetbl", Destination::Skipped},
    {"revtbl", Destination::Skipped},
    {"fontemb", Destination::Skipped},
    {"objdata", Destination::Skipped},
    {"objclass", Destination::Skipped},
    {"ftnsep", Destination::Skipped},
    {"ftnsepc", Destination::Skipped},
    {"ftncn", Destination::Skipped},
    {"aftnsep", Destination::Skipped},
    {"aftnsepc", Destination::Skipped},
    {"aftncn", Destination::Skipped},
    {"private", Destination::Skipped},
    {"generator", Destination::Skipped},
};

// An open-addressing hash table of indices into the list above, because most tokens are control words.
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
