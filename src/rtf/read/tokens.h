// The lexical form of RTF: groups, words, symbols and text, cut out of the bytes without copies.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace rtf {

enum class TokenKind : std::uint8_t {
    End,
    GroupOpen,
    GroupClose,
    Word,   // "\par", "\fs24 "
    Symbol, // "\~": a backslash and one other byte, none when the file ends there
    Hex,    // "\'e9"
    Plain,  // plain bytes, with no CR or LF among them
    Binary, // "\bin5 ....."
};

// One piece of the file; its views point into the bytes that the tokenizer was given.
struct Token {
    TokenKind kind = TokenKind::End;
    bool hasNumber = false;
    std::int32_t number = 0; // of a word, clamped to 32 bits; the byte of a Hex token, -1 without digits
    std::string_view text;   // name of the word, byte of the symbol, plain or binary bytes
    std::string_view raw;    // all of the token, with the blank that ends a word
};

// Cuts bytes into tokens, from first to last. Every byte string is accepted; nothing throws.
class Tokenizer {
public:
    explicit Tokenizer(std::string_view bytes) : bytes_(bytes) {}

    // The next token; End, again and again, behind the last.
    Token next();

private:
    Token control();
    Token word();
    Token hex();
    Token finish(Token token) const;

    std::string_view bytes_;
    std::size_t begin_ = 0;
    std::size_t at_ = 0;
};

} // namespace rtf
