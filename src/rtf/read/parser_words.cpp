// The part of the parser that handles control words and symbols.
#include "rtf/read/parser.h"

#include <algorithm>

namespace rtf {

namespace {

constexpr std::int32_t mostFallbackUnits = 255;

// A toggle is switched off only by the number 0.
bool isOn(const Token& token) {
    return !token.hasNumber || token.number != 0;
}

std::string_view withoutBlank(std::string_view raw) {
    return raw.substr(0, raw.size() - (raw.ends_with(' ') ? 1 : 0));
}

// No real file needs more; the limit keeps the words of all sections from outgrowing the file.
void appendWord(const Token& token, std::string& words) {
    constexpr std::size_t mostBytes = 512;
    if (const std::string_view word = withoutBlank(token.raw); words.size() + word.size() <= mostBytes)
        words += word;
}

// White space never serves as the fallback of a \u letter, so it ends the fallback.
bool isFallbackLetter(const KnownWord& known) {
    return known.action == Action(TextWord::Unit) && known.argument != u'\t' && known.argument != lineBreak &&
           known.argument != pageBreak;
}

} // namespace

void Parser::word(const Token& token) {
    const KnownWord& known = findWord(token.text);
    if (input_.passesOver()) {
        if (isFallbackLetter(known)) {
            input_.passedOne();
            return;
        }
        input_.stopPassing();
    }
    if (optional_ && !std::holds_alternative<Destination>(known.action))
        skipRestOfGroup();
    else
        std::visit([&](auto action) { act(action, known.argument, token); }, known.action);
}

void Parser::act(LetterWord action, std::uint16_t argument, const Token& token) {
    if (state().destination == Destination::FontTable) {
        if (action == LetterWord::FontNumber)
            fonts_.begin(token.number);
        return;
    }
    CharState& letters = state().letters;
    constexpr std::uint16_t usualSize = 24;
    constexpr std::int32_t largestSize = 3276;
    switch (action) {
    case LetterWord::Mark:
        letters.marks =
            static_cast<std::uint8_t>(isOn(token) ? letters.marks | argument : letters.marks & ~argument);
        break;
    case LetterWord::NoUnderline:
        letters.marks = static_cast<std::uint8_t>(letters.marks & ~Underline);
        break;
    case LetterWord::Plain:
        letters = CharState();
        letters.font = defaultFont_;
        break;
    case LetterWord::FontNumber:
        letters.font = token.number;
        break;
    case LetterWord::FontSize:
        letters.size =
            token.number <= 0 ? usualSize : static_cast<std::uint16_t>(std::min(token.number, largestSize));
        break;
    case LetterWord::ColourIndex:
        letters.colour = token.number;
        break;
    case LetterWord::BackgroundIndex:
        letters.background = token.number == 0 ? -1 : token.number;
        break;
    case LetterWord::Raise:
        letters.raised = isOn(token) ? static_cast<Raised>(argument) : Raised::No;
        break;
    }
    lettersChanged();
}

void Parser::act(ParagraphWord action, std::uint16_t argument, const Token& token) {
    ParagraphState& paragraph = state().paragraph;
    switch (action) {
    case ParagraphWord::Defaults:
        paragraph = ParagraphState();
        break;
    case ParagraphWord::Align:
        paragraph.alignment = static_cast<Alignment>(argument);
        break;
    case ParagraphWord::Indent:
        paragraph.measures[argument] = token.number;
        break;
    case ParagraphWord::PageBreakBefore:
        paragraph.pageBreakBefore = isOn(token);
        break;
    case ParagraphWord::Kept:
        paragraph.keptWords = words_.append(paragraph.keptWords, withoutBlank(token.raw));
        break;
    case ParagraphWord::List:
        paragraph.list = token.number;
        break;
    case ParagraphWord::ListLevel:
        paragraph.listLevel = token.number;
        break;
    }
}

void Parser::act(TextWord action, std::uint16_t argument, const Token& token) {
    switch (action) {
    case TextWord::Unit:
        unit(static_cast<char16_t>(argument));
        break;
    case TextWord::Unicode:
        if (const TextView text = input_.unicode(token.number); !text.empty())
            letters(text);
        input_.passOver(state().fallback);
        break;
    case TextWord::FallbackLength:
        state().fallback = std::clamp(token.hasNumber ? token.number : 1, 0, mostFallbackUnits);
        break;
    case TextWord::ParagraphEnd:
    case TextWord::SectionEnd:
        if (inBody())
            endParagraph(action == TextWord::SectionEnd);
        break;
    case TextWord::CellEnd:
        endCell();
        break;
    case TextWord::RowEnd:
        endRow();
        break;
    case TextWord::NoteMark:
        if (inBody())
            keptBefore_ += token.raw.ends_with(' ') ? token.raw : std::string(token.raw) + ' ';
        break;
    }
}

void Parser::act(DocumentWord action, std::uint16_t argument, const Token& token) {
    const Destination destination = state().destination;
    switch (action) {
    case DocumentWord::SectionDefaults:
        if (inBody())
            builder_.section().words.clear();
        break;
    case DocumentWord::Section:
        if (inBody())
            appendWord(token, builder_.section().words);
        break;
    case DocumentWord::Page:
        if (inBody())
            appendWord(token, builder_.document().pageWords);
        break;
    case DocumentWord::CodePage:
        if (argument != 0 || token.number > 0)
            codePage_ = argument != 0 ? argument : token.number;
        break;
    case DocumentWord::DefaultFont:
        defaultFont_ = token.number;
        state().letters.font = token.number;
        break;
    case DocumentWord::FontCharset:
        fonts_.charset(token.number);
        break;
    case DocumentWord::FontCodePage:
        fonts_.codePage(token.number);
        break;
    case DocumentWord::ColourPart:
        if (destination == Destination::ColourTable)
            colours_.part(argument, token.number);
        break;
    case DocumentWord::OldBullet:
    case DocumentWord::OldNumber:
        if (destination == Destination::OldList)
            state().paragraph.bullet = action == DocumentWord::OldBullet;
        break;
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
