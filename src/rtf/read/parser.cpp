#include "rtf/read/parser.h"

#include "rtf/fields.h"
#include "rtf/read/kept.h"

#include <algorithm>
#include <string>
#include <utility>

namespace rtf {

namespace {

// Deeper than in any real document; groups nested deeper share the state of the last level.
constexpr std::size_t deepestGroup = 4096;

// An escaped backslash or brace is text; in a double-byte page it may even be half of a letter.
bool isEscapedLetter(const Token& token) {
    return token.kind == TokenKind::Symbol && (token.text == "\\" || token.text == "{" || token.text == "}");
}

} // namespace

Parser::Parser(std::string_view bytes, bool opened) : tokens_(bytes), stack_(opened ? 2 : 1) {}

Document Parser::run() {
    bool behindBrace = false;
    while (!ended_) {
        const Token token = tokens_.next();
        if (token.kind == TokenKind::End)
            break;
        const bool optional = std::exchange(optional_, false);
        const bool isText = token.kind == TokenKind::Plain || isEscapedLetter(token);
        if (!isText && token.kind != TokenKind::Hex)
            flushBytes();
        switch (token.kind) {
        case TokenKind::GroupOpen:
            openGroup();
            break;
        case TokenKind::GroupClose:
            closeGroup();
            break;
        case TokenKind::Word:
            optional_ = optional;
            word(token);
            optional_ = false;
            break;
        case TokenKind::Symbol:
            optional_ = behindBrace && token.text == "*";
            if (isText)
                plain(token.text);
            else
                symbol(token);
            break;
        case TokenKind::Hex:
            hex(token);
            break;
        case TokenKind::Plain:
            plain(token.text);
            break;
        case TokenKind::Binary:
        case TokenKind::End:
            break;
        }
        behindBrace = token.kind == TokenKind::GroupOpen;
    }
    flushBytes();
    return finish();
}

void Parser::openGroup() {
    input_.stopPassing();
    if (stack_.size() < deepestGroup)
        stack_.push_back(stack_.back());
    else
        ++deeperGroups_;
}

void Parser::closeGroup() {
    input_.stopPassing();
    if (deeperGroups_ > 0) {
        --deeperGroups_;
        return;
    }
    // The brace that closes the file ends the reading. A closing brace without an opening one is ignored.
    if (stack_.size() <= 2) {
        ended_ = stack_.size() == 2;
        return;
    }
    const GroupState inner = stack_.back();
    stack_.pop_back();
    lettersChanged();
    leaveGroup(inner);
}

void Parser::leaveGroup(const GroupState& inner) {
    const Destination outer = state().destination;
    if (inner.destination == Destination::FontTable && outer != Destination::FontTable)
        fonts_.end();
    if (inner.destination == Destination::ListLabel && outer != Destination::ListLabel)
        finishLabel();
    if (inner.destination == Destination::OldList && outer != Destination::OldList)
        state().paragraph.bullet = inner.paragraph.bullet;
    if (inner.field != state().field && inner.field + 1 == fields_.size()) {
        const FieldState field = std::move(fields_.back());
        fields_.pop_back();
        finishField(field);
    }
}

void Parser::enter(Destination destination, const Token& word) {
    // The outermost group keeps its destination; otherwise the whole file would be lost.
    const bool outermost = stack_.size() <= 2 && deeperGroups_ == 0;
    if (outermost)
        return;
    if (deeperGroups_ > 0) {
        skipRestOfGroup();
        return;
    }
    lettersChanged();
    switch (destination) {
    case Destination::Body:
        break;
    case Destination::Field:
        enterField();
        break;
    case Destination::FieldInstruction:
        state().instruction = state().field;
        state().destination = state().field == none ? Destination::Skipped : destination;
        break;
    case Destination::FieldResult:
        if (state().field == none)
            break;
        enterResult(fields_[state().field]);
        break;
    case Destination::Alternatives:
        state().outer = state().destination;
        state().destination = destination;
        break;
    case Destination::UnicodeAlternative:
        state().destination =
            state().destination == Destination::Alternatives ? state().outer : Destination::Skipped;
        break;
    case Destination::FontTable:
    case Destination::ColourTable:
    case Destination::ListLabel:
    case Destination::OldList:
        state().destination = destination;
        break;
    case Destination::Skipped:
    case Destination::KeptHere:
    case Destination::KeptBefore:
    case Destination::KeptBehind:
    case Destination::KeptHeader:
    case Destination::KeptHead:
    case Destination::Moments:
        keep(destination, word);
        break;
    }
}

void Parser::enterField() {
    state().field = static_cast<std::uint32_t>(fields_.size());
    fields_.push_back({.instruction = {}, .outer = state().destination});
    state().destination = Destination::Field;
}

void Parser::enterResult(FieldState& field) {
    state().destination = field.outer;
    if (std::exchange(field.hasResult, true))
        return;
    constexpr std::size_t longestTarget = 2048;
    Text target = linkTarget(field.instruction);
    if (target.empty() || target.size() > longestTarget)
        return;
    state().link = static_cast<std::uint32_t>(links_.size());
    links_.push_back({std::move(target)});
}

void Parser::skipRestOfGroup() {
    skipGroup(tokens_);
    closeGroup();
}

void Parser::keep(Destination destination, const Token& word) {
    if (destination == Destination::Skipped || !inBody()) {
        skipRestOfGroup();
        return;
    }
    if (destination == Destination::Moments) {
        takeMoments(word);
        return;
    }
    std::string range = optional_ ? "{\\*" : "{";
    range += word.raw;
    // When the range is written again, the surrounding fallback length is 1 (\uc1).
    if (state().fallback != 1)
        range += "\\uc" + std::to_string(state().fallback) + ' ';
    copyGroup(tokens_, word.text, range);
    closeGroup();
    if (destination == Destination::KeptHead)
        builder_.document().head += range;
    else if (destination == Destination::KeptHeader)
        builder_.section().headers += range;
    else if (destination == Destination::KeptBefore)
        keptBefore_ += range;
    else
        placeKept(destination == Destination::KeptBehind, std::move(range));
}

// The last one counts; the brace that closes the group comes with the copy.
void Parser::takeMoments(const Token& word) {
    std::string& moments = builder_.document().moments;
    moments.clear();
    copyGroup(tokens_, word.text, moments);
    std::erase_if(moments, [](char byte) { return byte <= ' ' || byte == '}'; });
    closeGroup();
}

void Parser::placeKept(bool joinsPrevious, std::string range) {
    flushHalf();
    if (joinsPrevious && emptyCells_ == 0 && builder_.extendKept(range))
        return;
    range.insert(0, keptBefore_);
    prepareBody();
    builder_.addKept(std::move(range));
}

void Parser::lettersChanged() {
    formatIsStale_ = true;
    encodingIsStale_ = true;
}

Document Parser::finish() {
    flushHalf();
    const bool lastCounts = builder_.lastParagraphCounts();
    if (lastCounts)
        endParagraph(false);
    Document document = builder_.finish(!lastCounts);
    takeKeptTables(document);
    return document;
}

void Parser::takeKeptTables(Document& document) {
    KeptReferences references;
    bool any = false;
    const auto note = [&](const std::string& range) {
        references.note(range);
        any = any || !range.empty();
    };
    note(document.head);
    std::for_each(document.kept.begin(), document.kept.end(), note);
    for (const Section& section : document.sections)
        note(section.headers);
    if (!any)
        return;
    KeptTables& tables = document.keptTables;
    tables.codePage = codePage_;
    tables.defaultFont = defaultFont_;
    references.fonts.insert(defaultFont_);
    for (const std::int32_t number : references.fonts)
        tables.fonts.push_back({number, fonts_.find(number).font});
    tables.colours = colours_.first(static_cast<std::size_t>(references.highestColour) + 1);
}

} // namespace rtf
