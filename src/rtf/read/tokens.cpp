#include "rtf/read/tokens.h"

#include <algorithm>
#include <array>
#include <limits>

namespace rtf {

namespace {

bool isLetter(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

int hexDigit(char byte) {
    if (isDigit(byte))
        return byte - '0';
    if (byte >= 'a' && byte <= 'f')
        return byte - 'a' + 10;
    return byte >= 'A' && byte <= 'F' ? byte - 'A' + 10 : -1;
}

// Bytes that end plain text; a table, because every byte of the file is tested.
constexpr auto endsText = [] {
    std::array<bool, 256> table{};
    for (const char byte : {'\\', '{', '}', '\r', '\n'})
        table[static_cast<unsigned char>(byte)] = true;
    return table;
}();

} // namespace

Token Tokenizer::finish(Token token) const {
    token.raw = bytes_.substr(begin_, at_ - begin_);
    return token;
}

Token Tokenizer::next() {
    while (at_ < bytes_.size() && (bytes_[at_] == '\r' || bytes_[at_] == '\n'))
        ++at_;
    begin_ = at_;
    if (at_ == bytes_.size())
        return finish({});
    Token token;
    switch (bytes_[at_]) {
    case '{':
    case '}':
        token.kind = bytes_[at_++] == '{' ? TokenKind::GroupOpen : TokenKind::GroupClose;
        return finish(token);
    case '\\':
        ++at_;
        return control();
    default:
        while (at_ < bytes_.size() && !endsText[static_cast<unsigned char>(bytes_[at_])])
            ++at_;
        token.kind = TokenKind::Plain;
        token.text = bytes_.substr(begin_, at_ - begin_);
        return finish(token);
    }
}

Token Tokenizer::control() {
    if (at_ < bytes_.size() && isLetter(bytes_[at_]))
        return word();
    if (at_ < bytes_.size() && bytes_[at_] == '\'')
        return hex();
    Token token;
    token.kind = TokenKind::Symbol;
    token.text = bytes_.substr(at_, 1);
    at_ += token.text.size();
    return finish(token);
}

Token Tokenizer::word() {
    Token token;
    token.kind = TokenKind::Word;
    const std::size_t nameBegin = at_;
    while (at_ < bytes_.size() && isLetter(bytes_[at_]))
        ++at_;
    token.text = bytes_.substr(nameBegin, at_ - nameBegin);
    const bool negative = at_ + 1 < bytes_.size() && bytes_[at_] == '-' && isDigit(bytes_[at_ + 1]);
    at_ += negative ? 1 : 0;
    std::int64_t number = 0;
    constexpr std::int64_t limit = std::numeric_limits<std::int32_t>::max();
    while (at_ < bytes_.size() && isDigit(bytes_[at_])) {
        number = std::min(number * 10 + (bytes_[at_++] - '0'), limit);
        token.hasNumber = true;
    }
    token.number = static_cast<std::int32_t>(negative ? -number : number);
    if (at_ < bytes_.size() && bytes_[at_] == ' ')
        ++at_;
    if (token.text == "bin") {
        token.kind = TokenKind::Binary;
        token.text = bytes_.substr(at_, static_cast<std::size_t>(std::max(token.number, 0)));
        at_ += token.text.size();
    }
    return finish(token);
}

Token Tokenizer::hex() {
    Token token;
    token.kind = TokenKind::Hex;
    token.number = -1;
    ++at_;
    for (int digits = 0; digits < 2 && at_ < bytes_.size(); ++digits, ++at_) {
        const int digit = hexDigit(bytes_[at_]);
        if (digit < 0)
            break;
        token.number = std::max(token.number, 0) * 16 + digit;
    }
    return finish(token);
}

} // namespace rtf
