#include "rtf/read/structure.h"

#include "rtf/read/tokens.h"

#include <algorithm>
#include <array>
#include <string>

namespace rtf {

namespace {

constexpr std::array<std::string_view, 8> droppedWords{"trowd", "bkmkstart", "xe",      "tc",
                                                       "tcn",   "revised",   "deleted", "formfield"};
constexpr std::string_view link = "HYPERLINK";

// The text of the group that the tokenizer stands in, without what formats it.
std::string textOfGroup(Tokenizer& tokens) {
    std::string text;
    for (int depth = 1; depth > 0;) {
        const Token token = tokens.next();
        switch (token.kind) {
        case TokenKind::GroupOpen:
            ++depth;
            break;
        case TokenKind::GroupClose:
            --depth;
            break;
        case TokenKind::Plain:
            text += token.text;
            break;
        case TokenKind::End:
            return text;
        default:
            break;
        }
    }
    return text;
}

} // namespace

bool losesStructure(std::string_view bytes) {
    Tokenizer tokens(bytes);
    for (Token token = tokens.next(); token.kind != TokenKind::End; token = tokens.next()) {
        if (token.kind != TokenKind::Word)
            continue;
        if (std::find(droppedWords.begin(), droppedWords.end(), token.text) != droppedWords.end())
            return true;
        if (token.text == "fldinst" && textOfGroup(tokens).find(link) == std::string::npos)
            return true;
    }
    return false;
}

} // namespace rtf
