// The part of the parser that turns bytes and control words into text.
#include "rtf/fields.h"
#include "rtf/read/parser.h"

#include <algorithm>
#include <utility>

namespace rtf {

void Parser::plain(std::string_view bytes) {
    bytes = input_.rest(bytes);
    const Destination destination = state().destination;
    if (bytes.empty() || destination == Destination::Skipped)
        return;
    if (destination == Destination::ColourTable) {
        for (auto entries = std::count(bytes.begin(), bytes.end(), ';'); entries > 0; --entries)
            colours_.endEntry();
        return;
    }
    flushHalf();
    // After the first half of a double-byte letter a plain byte may be the second half; otherwise ASCII is
    // unambiguous.
    if (input_.hasBytes() || !isPrintableAscii(bytes) || encoding().symbols) {
        input_.addBytes(bytes);
    } else if (destination == Destination::Body) {
        prepareBody();
        builder_.addAscii(bytes);
    } else {
        letters(Text(bytes.begin(), bytes.end()));
    }
}

void Parser::hex(const Token& token) {
    if (input_.passesOver()) {
        input_.passedOne();
        return;
    }
    flushHalf();
    if (token.number >= 0)
        input_.addByte(token.number);
}

void Parser::flushBytes() {
    if (!input_.hasBytes())
        return;
    if (const TextView text = input_.takeBytes(encoding()); !text.empty())
        letters(text);
}

void Parser::flushHalf() {
    if (input_.hasHalf())
        letters(input_.takeHalf());
}

void Parser::unit(char16_t unit) {
    flushHalf();
    letters(TextView(&unit, 1));
}

void Parser::letters(TextView text) {
    switch (state().destination) {
    case Destination::Body:
        prepareBody();
        builder_.addText(text);
        break;
    case Destination::FieldInstruction:
        fields_[state().instruction].instruction += text;
        break;
    case Destination::ListLabel:
        label_ += text;
        break;
    case Destination::FontTable:
        fonts_.name(text);
        break;
    case Destination::ColourTable:
    case Destination::Field:
    case Destination::OldList:
    case Destination::Alternatives:
    case Destination::UnicodeAlternative:
    case Destination::FieldResult:
    case Destination::Skipped:
    case Destination::KeptHere:
    case Destination::KeptBefore:
    case Destination::KeptBehind:
    case Destination::KeptHeader:
    case Destination::KeptHead:
    case Destination::Moments:
        break;
    }
}

void Parser::prepareBody() {
    if (formatIsStale_) {
        refreshFormat(state().link);
        formatIsStale_ = false;
    }
    keptBefore_.clear();
    if (const std::size_t tabs = std::exchange(emptyCells_, 0); tabs > 0)
        builder_.addText(Text(tabs, u'\t'));
}

void Parser::refreshFormat(std::uint32_t link) {
    const CharState& letters = state().letters;
    FontEntry& font = fonts_.find(letters.font);
    if (font.index == none)
        font.index = builder_.font(font.font);
    builder_.useFormat({
        .font = font.index,
        .link = documentLink(link),
        .size = letters.size,
        .bold = (letters.marks & Bold) != 0,
        .italic = (letters.marks & Italic) != 0,
        .underline = (letters.marks & Underline) != 0,
        .strike = (letters.marks & Strike) != 0,
        .hidden = (letters.marks & Hidden) != 0,
        .capitals = (letters.marks & Capitals) != 0,
        .smallCapitals = (letters.marks & SmallCapitals) != 0,
        .raised = letters.raised,
        .colour = colours_.find(letters.colour),
        .background = colours_.find(letters.background),
    });
}

// Each linked run is written with its target, so a long target repeated over many paragraphs would make the
// written file many times larger than the one read. Beyond a size that no real document has, links become
// plain text.
std::uint32_t Parser::documentLink(std::uint32_t link) {
    constexpr std::size_t mostUnits = 1U << 26U;
    if (link == none || linkUnits_ > mostUnits)
        return none;
    LinkState& used = links_[link];
    linkUnits_ += used.target.size();
    if (used.index == none)
        used.index = builder_.link(used.target);
    return used.index;
}

const Encoding& Parser::encoding() {
    const Destination destination = state().destination;
    if (destination == Destination::FontTable || encodingIsStale_) {
        const FontEntry& font = fonts_.find(state().letters.font);
        const int page = destination == Destination::FontTable ? fonts_.entryPage() : font.codePage;
        const bool showsLetters = destination == Destination::Body || destination == Destination::ListLabel;
        encoding_ = {.codePage = page == 0 ? codePage_ : page,
                     .symbols = showsLetters && font.font.charset == symbolCharset};
        encodingIsStale_ = false;
    }
    return encoding_;
}

void Parser::endParagraph(bool endsSection) {
    flushHalf();
    if (emptyCells_ > 0)
        prepareBody();
    // The format of an empty paragraph applies to text typed there, which does not belong to a link.
    if (builder_.paragraphIsEmpty()) {
        refreshFormat(none);
        formatIsStale_ = true;
    }
    if (endsSection)
        builder_.endSection(paragraphFormat());
    else
        builder_.endParagraph(paragraphFormat());
    formatIsStale_ = formatIsStale_ || state().link != none;
    keptBefore_.clear();
    bulletLabel_ = false;
    typedLabel_ = false;
}

void Parser::endCell() {
    if (!inBody())
        return;
    flushHalf();
    ++emptyCells_;
}

// Drops the pending tab of the row's last cell, which separates nothing.
void Parser::endRow() {
    if (!inBody())
        return;
    if (emptyCells_ > 0)
        --emptyCells_;
    endParagraph(false);
}

namespace {

std::string listWords(const ParagraphState& paragraph) {
    std::string words;
    if (paragraph.list != noList)
        words += "\\ls" + std::to_string(paragraph.list);
    if (paragraph.listLevel != noList)
        words += "\\ilvl" + std::to_string(paragraph.listLevel);
    return words;
}

} // namespace

ParagraphFormat Parser::paragraphFormat() const {
    const ParagraphState& paragraph = stack_.back().paragraph;
    const auto measure = [&](Measure which) { return paragraph.measures[static_cast<std::size_t>(which)]; };
    return {
        .alignment = paragraph.alignment,
        .bullet = !typedLabel_ && (bulletLabel_ || paragraph.bullet),
        .pageBreakBefore = paragraph.pageBreakBefore,
        .leftIndent = measure(Measure::Left),
        .rightIndent = measure(Measure::Right),
        .firstIndent = measure(Measure::First),
        .spaceBefore = measure(Measure::Before),
        .spaceAfter = measure(Measure::After),
        .list = typedLabel_ ? std::string() : listWords(paragraph),
        .kept = words_.words(paragraph.keptWords),
    };
}

// A bullet becomes a paragraph format; a number becomes text, since the editor does not number lists.
void Parser::finishLabel() {
    const Text label = std::exchange(label_, {});
    if (!inBody())
        return;
    const std::size_t begin = label.find_first_not_of(u" \t\u00A0");
    if (begin == Text::npos)
        return;
    const TextView core = TextView(label).substr(begin, label.find_last_not_of(u" \t\u00A0") + 1 - begin);
    const auto isLetterOrDigit = [](char16_t unit) {
        return (unit >= u'0' && unit <= u'9') || ((unit | 0x20) >= u'a' && (unit | 0x20) <= u'z');
    };
    // Word processors write the letter "o" as the bullet of the second level.
    if (core.size() == 1 && (core == u"o" || !isLetterOrDigit(core[0]))) {
        bulletLabel_ = true;
        return;
    }
    typedLabel_ = true;
    letters(label);
}

void Parser::finishField(const FieldState& field) {
    if (field.hasResult)
        return;
    if (const char16_t symbol = symbolOf(field.instruction); symbol != 0)
        unit(symbol);
}

} // namespace rtf
