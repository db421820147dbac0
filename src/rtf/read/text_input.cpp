#include "rtf/read/text_input.h"

#include <algorithm>

namespace rtf {

namespace {

// Control characters are not text. Unicode's own line and paragraph separators become line breaks.
char16_t cleaned(char16_t unit) {
    if (unit == u'\u2029' || unit == u'\u0085')
        return lineBreak;
    return unit < u' ' && unit != u'\t' ? u'\0' : unit;
}

} // namespace

bool isPrintableAscii(std::string_view bytes) {
    unsigned wrong = 0;
    for (const char byte : bytes)
        wrong |= static_cast<unsigned>(static_cast<unsigned char>(byte) - 0x20U > 0x5EU);
    return wrong == 0;
}

TextView TextInput::takeBytes(const Encoding& encoding) {
    text_.clear();
    if (encoding.symbols) {
        for (const char byte : bytes_)
            if (const auto value = static_cast<unsigned char>(byte); value >= 0x20)
                text_ += value == 0x20 ? u' ' : static_cast<char16_t>(0xF000 + value);
    } else {
        pages_.append(encoding.codePage, bytes_, text_);
        std::transform(text_.begin(), text_.end(), text_.begin(), cleaned);
        std::erase(text_, u'\0');
    }
    bytes_.clear();
    return text_;
}

TextView TextInput::unicode(std::int32_t number) {
    const auto unit = static_cast<char16_t>(number);
    text_.clear();
    if (number > 0xFFFF && number <= 0x10FFFF) {
        takeHalf();
        const auto above = static_cast<std::uint32_t>(number) - 0x10000U;
        text_ += static_cast<char16_t>(0xD800U + (above >> 10U));
        text_ += static_cast<char16_t>(0xDC00U + (above & 0x3FFU));
        return text_;
    }
    const bool isFirst = unit >= 0xD800 && unit <= 0xDBFF;
    const bool isSecond = unit >= 0xDC00 && unit <= 0xDFFF;
    if (isSecond && half_ != 0) {
        text_ = {half_, unit};
        half_ = 0;
        return text_;
    }
    if (half_ != 0)
        text_ = u"\uFFFD";
    half_ = isFirst ? unit : u'\0';
    if (isFirst)
        return text_;
    if (const char16_t letter = isSecond ? u'\uFFFD' : cleaned(unit); letter != 0)
        text_ += letter;
    return text_;
}

TextView TextInput::takeHalf() {
    text_.assign(half_ != 0 ? 1 : 0, u'\uFFFD');
    half_ = 0;
    return text_;
}

std::string_view TextInput::rest(std::string_view bytes) {
    const auto passed = std::min<std::size_t>(static_cast<std::size_t>(std::max(passOver_, 0)), bytes.size());
    passOver_ -= static_cast<std::int32_t>(passed);
    return bytes.substr(passed);
}

} // namespace rtf
