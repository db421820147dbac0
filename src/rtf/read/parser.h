// The RTF parser: a stack of group states, driven by tokens.
#pragma once

#include "rtf/builder.h"
#include "rtf/read/state.h"
#include "rtf/read/tables.h"
#include "rtf/read/text_input.h"
#include "rtf/read/tokens.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace rtf {

// Parses one file; used once.
class Parser {
public:
    // `opened`: the brace that opens the file precedes these bytes.
    Parser(std::string_view bytes, bool opened);

    Document run();

private:
    // Groups
    void openGroup();
    void closeGroup();
    void leaveGroup(const GroupState& inner);
    void enter(Destination destination, const Token& word);
    void enterField();
    void enterResult(FieldState& field);
    void skipRestOfGroup();
    void keep(Destination destination, const Token& word);
    void takeMoments(const Token& word);
    void placeKept(bool joinsPrevious, std::string range);

    // Tokens
    void word(const Token& token);
    void symbol(const Token& token);
    void act(LetterWord action, std::uint16_t argument, const Token& token);
    void act(ParagraphWord action, std::uint16_t argument, const Token& token);
    void act(TextWord action, std::uint16_t argument, const Token& token);
    void act(DocumentWord action, std::uint16_t argument, const Token& token);
    void act(Destination destination, std::uint16_t, const Token& token) { enter(destination, token); }
    void act(std::monostate, std::uint16_t, const Token&) {}

    // Text
    void plain(std::string_view bytes);
    void hex(const Token& token);
    void flushBytes();
    void flushHalf();
    void unit(char16_t unit);
    void letters(TextView text);
    void prepareBody();
    void refreshFormat(std::uint32_t link);
    std::uint32_t documentLink(std::uint32_t link);
    const Encoding& encoding();
    void lettersChanged();

    // Paragraphs and fields
    void endParagraph(bool endsSection);
    void endCell();
    void endRow();
    ParagraphFormat paragraphFormat() const;
    void finishLabel();
    void finishField(const FieldState& field);
    void takeKeptTables(Document& document);
    Document finish();

    GroupState& state() { return stack_.back(); }
    bool inBody() const { return stack_.back().destination == Destination::Body; }

    Tokenizer tokens_;
    TextInput input_;
    FontTable fonts_;
    ColourTable colours_;
    DocumentBuilder builder_;
    WordChain words_;
    std::vector<GroupState> stack_;
    std::vector<FieldState> fields_;
    std::vector<LinkState> links_;
    Encoding encoding_;
    Text label_;
    std::string keptBefore_;
    std::size_t deeperGroups_ = 0; // open groups beyond the maximum depth
    std::size_t linkUnits_ = 0;    // total length of the targets of all linked runs, in units
    std::size_t emptyCells_ = 0;   // cell ends that become tabs if text follows
    std::int32_t defaultFont_ = 0;
    int codePage_ = 1252;
    bool ended_ = false;
    bool optional_ = false; // after "{\*": an unknown control word skips its group
    bool formatIsStale_ = true;
    bool encodingIsStale_ = true;
    bool bulletLabel_ = false;
    bool typedLabel_ = false; // the paragraph's label has become text
};

} // namespace rtf
