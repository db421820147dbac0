// The lexical structure of RTF: groups, control words, symbols and text, as views of the bytes.
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
    Symbol, // "\~": a backslash and one other byte; no byte at the end of the file
    Hex,    // "\'e9"
    Plain,  // plain bytes without CR and LF
    Binary, // "\bin5 ....."
};

// One token; its views point into the tokenizer's input.
struct Token {
    TokenKind kind = TokenKind::End;
    bool hasNumber = false;
    std::int32_t number = 0; // of a control word, clamped to 32 bits; byte of a Hex token, -1 without digits
    std::string_view text;   // name of the control word, byte of the symbol, plain or binary bytes
    std::string_view raw;    // the whole token, including the blank that ends a control word
};

// Splits bytes into tokens. Accepts any bytes and never throws.
class Tokenizer {
public:
    explicit Tokenizer(std::string_view bytes) : bytes_(bytes) {}

    // The next token. At the end it returns End, repeatedly.
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
