#include "rtf/rtf_tokens.h"

#include <gtest/gtest.h>
#include <string>

namespace {

// All tokens in one line: braces, words with their number, symbols, bytes in hex, text in quotes, binary in
// <>.
std::string cut(std::string_view bytes) {
    std::string all;
    rtf::Tokenizer tokens(bytes);
    for (rtf::Token token = tokens.next(); token.kind != rtf::TokenKind::End; token = tokens.next()) {
        const std::string text(token.text);
        const std::string number = token.hasNumber ? std::to_string(token.number) : "";
        switch (token.kind) {
        case rtf::TokenKind::Word:
            all.append("\\").append(text).append(number);
            break;
        case rtf::TokenKind::Symbol:
            all += "\\" + text;
            break;
        case rtf::TokenKind::Hex:
            all += "'" + std::to_string(token.number);
            break;
        case rtf::TokenKind::Plain:
            all += '"' + text + '"';
            break;
        case rtf::TokenKind::Binary:
            all += '<' + text + '>';
            break;
        default:
            all += token.raw;
        }
        all += ' ';
    }
    return all;
}

} // namespace

TEST(RtfTokens, Bytes_AreCutIntoTokens) {
    const std::pair<std::string, std::string> rows[] = {
        {"{\\rtf1\\b bold}", R"({ \rtf1 \b "bold" } )"},
        {"\\fs24  x", R"(\fs24 " x" )"},
        {"\\li-720\\par", "\\li-720 \\par "},
        {"\\b-x", R"(\b "-x" )"},
        {"a\r\nb\nc", R"("a" "b" "c" )"},
        {"\\b\r\n1", R"(\b "1" )"},
        {R"(\~\_\*\{\\)", R"(\~ \_ \* \{ \\ )"},
        {"\\'e9\\'E9", "'233 '233 "},
        {"\\'4}\\'zz", "'4 } '-1 \"zz\" "},
        {"\\fs99999999999\\fs-99999999999 ", "\\fs2147483647 \\fs-2147483647 "},
        {"\\bin3 {}\\}", "<{}\\> } "},
        {"\\bin99 abc", "<abc> "},
        {"\\bin-1 a", "<> \"a\" "},
        {"\\bin", "<> "},
        {"a\\", R"("a" \ )"},
        {"\\'", "'-1 "},
        {"", ""},
    };
    for (const auto& [bytes, tokens] : rows)
        EXPECT_EQ(cut(bytes), tokens) << bytes;
}

TEST(RtfTokens, Raw_TellsAllBytesButLineEnds) {
    const std::string bytes = R"({\rtf1 a\'e9\~\bin2 \\\par})";
    std::string raw;
    rtf::Tokenizer tokens(bytes);
    for (rtf::Token token = tokens.next(); token.kind != rtf::TokenKind::End; token = tokens.next())
        raw += token.raw;
    EXPECT_EQ(raw, bytes);
    EXPECT_EQ(tokens.next().kind, rtf::TokenKind::End);
}
