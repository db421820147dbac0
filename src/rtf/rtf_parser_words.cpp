// The part of the reader that acts on words and symbols.
#include "rtf/rtf_parser.h"

#include <algorithm>

namespace rtf {

namespace {

constexpr std::int32_t mostFallbackUnits = 255;

// A word that turns something on, or off when its number is 0.
bool isOn(const Token& token) {
    return !token.hasNumber || token.number != 0;
}

std::string_view withoutBlank(std::string_view raw) {
    return raw.substr(0, raw.size() - (raw.ends_with(' ') ? 1 : 0));
}

// No writer needs more, and the sum of all sections shall not outgrow the file.
void appendWord(const Token& token, std::string& words) {
    constexpr std::size_t mostBytes = 512;
    if (const std::string_view word = withoutBlank(token.raw); words.size() + word.size() <= mostBytes)
        words += word;
}

// White space is never what stands in for a letter of Unicode, so it ends the letters that do.
bool standsInForALetter(const KnownWord& known) {
    return known.action == Action::Unit && known.argument != u'\t' && known.argument != lineBreak &&
           known.argument != pageBreak;
}

} // namespace

void Parser::word(const Token& token) {
    const KnownWord& known = findWord(token.text);
    if (input_.passesOver()) {
        if (standsInForALetter(known)) {
            input_.passedOne();
            return;
        }
        input_.stopPassing();
    }
    if (known.action == Action::Enter)
        enter(known, token);
    else if (optional_)
        passOverGroup();
    else if (known.action == Action::None)
        return;
    else if (known.action <= Action::Raise)
        letterWord(known, token);
    else if (known.action <= Action::ListWord)
        paragraphWord(known, token);
    else if (known.action <= Action::NoteMark)
        textWord(known, token);
    else
        documentWord(known, token);
}

void Parser::letterWord(const KnownWord& known, const Token& token) {
    if (state().destination == Destination::FontTable) {
        if (known.action == Action::FontNumber)
            fonts_.begin(token.number);
        return;
    }
    CharState& letters = state().letters;
    constexpr std::uint16_t usualSize = 24;
    constexpr std::int32_t largestSize = 3276;
    switch (known.action) {
    case Action::Mark:
        letters.marks = static_cast<std::uint8_t>(isOn(token) ? letters.marks | known.argument
                                                              : letters.marks & ~known.argument);
        break;
    case Action::NoUnderline:
        letters.marks = static_cast<std::uint8_t>(letters.marks & ~Underline);
        break;
    case Action::Plain:
        letters = CharState();
        letters.font = defaultFont_;
        break;
    case Action::FontNumber:
        letters.font = token.number;
        break;
    case Action::FontSize:
        letters.size =
            token.number <= 0 ? usualSize : static_cast<std::uint16_t>(std::min(token.number, largestSize));
        break;
    case Action::ColourIndex:
        letters.colour = token.number;
        break;
    case Action::BackgroundIndex:
        letters.background = token.number == 0 ? -1 : token.number;
        break;
    default:
        letters.raised = isOn(token) ? static_cast<Raised>(known.argument) : Raised::No;
    }
    lettersChanged();
}

void Parser::paragraphWord(const KnownWord& known, const Token& token) {
    ParagraphState& paragraph = state().paragraph;
    switch (known.action) {
    case Action::ParagraphDefaults:
        paragraph = ParagraphState();
        break;
    case Action::Align:
        paragraph.alignment = static_cast<Alignment>(known.argument);
        break;
    case Action::Indent:
        paragraph.measures[known.argument] = token.number;
        break;
    case Action::ListWord:
        (known.argument == 0 ? paragraph.list : paragraph.listLevel) = token.number;
        break;
    default:
        paragraph.keptWords = words_.append(paragraph.keptWords, withoutBlank(token.raw));
    }
}

void Parser::textWord(const KnownWord& known, const Token& token) {
    switch (known.action) {
    case Action::Unit:
        unit(static_cast<char16_t>(known.argument));
        return;
    case Action::Unicode:
        if (const TextView text = input_.unicode(token.number); !text.empty())
            letters(text);
        input_.passOver(state().fallback);
        return;
    case Action::FallbackLength:
        state().fallback = std::clamp(token.hasNumber ? token.number : 1, 0, mostFallbackUnits);
        return;
    default:
        break;
    }
    if (!inBody())
        return;
    switch (known.action) {
    case Action::ParagraphEnd:
    case Action::SectionEnd:
        endParagraph(known.action == Action::SectionEnd);
        break;
    case Action::CellEnd:
        flushHalf();
        ++emptyCells_;
        break;
    case Action::RowEnd:
        endRow();
        break;
    default:
        keptBefore_ += token.raw.ends_with(' ') ? token.raw : std::string(token.raw) + ' ';
    }
}

void Parser::documentWord(const KnownWord& known, const Token& token) {
    switch (known.action) {
    case Action::SectionDefaults:
        if (inBody())
            builder_.section().words.clear();
        break;
    case Action::SectionWord:
        if (inBody())
            appendWord(token, builder_.section().words);
        break;
    case Action::PageWord:
        if (inBody())
            appendWord(token, builder_.document().pageWords);
        break;
    case Action::CodePage:
        if (known.argument != 0 || token.number > 0)
            codePage_ = known.argument != 0 ? known.argument : token.number;
        break;
    case Action::DefaultFont:
        defaultFont_ = token.number;
        state().letters.font = token.number;
        break;
    case Action::FontCharset:
        fonts_.charset(token.number);
        break;
    case Action::FontCodePage:
        fonts_.codePage(token.number);
        break;
    case Action::ColourPart:
        if (state().destination == Destination::ColourTable)
            colours_.part(known.argument, token.number);
        break;
    default:
        if (state().destination == Destination::OldList)
            state().paragraph.bullet = known.action == Action::OldBullet;
    }
    lettersChanged();
}

void Parser::symbol(const Token& token) {
    if (token.text.empty())
        return;
    if (input_.passesOver()) {
        input_.passedOne();
        return;
    }
    switch (token.text[0]) {
    case '~':
        unit(u'\u00A0');
        break;
    case '-':
        unit(u'\u00AD');
        break;
    case '_':
        unit(u'\u2011');
        break;
    case '\t':
        unit(u'\t');
        break;
    case '\r':
    case '\n':
        if (inBody())
            endParagraph(false);
        break;
    default:
        break;
    }
}

} // namespace rtf
