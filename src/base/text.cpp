#include "base/text.h"

#include <cstdint>

namespace base {

namespace {

constexpr char16_t foreignByteFirst = 0xDC80;
constexpr char16_t foreignByteLast = 0xDCFF;
constexpr char32_t replacement = 0xFFFD;
constexpr TextView lineFeedMark{u"\0n", 2};
constexpr TextView carriageReturnMark{u"\0r", 2};

bool isHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

// Length in bytes of the valid UTF-8 sequence at the start of `bytes`, 0 if there is none; stores its code
// point.
std::size_t decodeSequence(std::string_view bytes, char32_t& codePoint) {
    const auto lead = static_cast<std::uint8_t>(bytes[0]);
    if (lead < 0x80) {
        codePoint = lead;
        return 1;
    }
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || bytes.size() < length)
        return 0;
    codePoint = lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<std::uint8_t>(bytes[i]);
        if ((next & 0xC0U) != 0x80)
            return 0;
        codePoint = codePoint << 6 | (next & 0x3FU);
    }
    const bool overlong = (length == 3 && codePoint < 0x800) || (length == 4 && codePoint < 0x10000);
    const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    return overlong || surrogate || codePoint > 0x10FFFF ? 0 : length;
}

void appendUtf16(Text& text, char32_t codePoint) {
    if (codePoint < 0x10000) {
        text += static_cast<char16_t>(codePoint);
        return;
    }
    text += static_cast<char16_t>(0xD7C0 + (codePoint >> 10));
    text += static_cast<char16_t>(0xDC00 + (codePoint & 0x3FFU));
}

void appendUtf8(std::string& bytes, char32_t codePoint) {
    const auto trail = [&](int shift) { bytes += static_cast<char>(0x80 | (codePoint >> shift & 0x3FU)); };
    if (codePoint < 0x80) {
        bytes += static_cast<char>(codePoint);
    } else if (codePoint < 0x800) {
        bytes += static_cast<char>(0xC0 | codePoint >> 6);
        trail(0);
    } else if (codePoint < 0x10000) {
        bytes += static_cast<char>(0xE0 | codePoint >> 12);
        trail(6);
        trail(0);
    } else {
        bytes += static_cast<char>(0xF0 | codePoint >> 18);
        trail(12);
        trail(6);
        trail(0);
    }
}

} // namespace

Text fromUtf8(std::string_view bytes) {
    Text text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        char32_t codePoint = 0;
        std::size_t length = decodeSequence(bytes, codePoint);
        if (length == 0) {
            codePoint = 0xDC00U + static_cast<std::uint8_t>(bytes[0]);
            length = 1;
        }
        appendUtf16(text, codePoint);
        bytes.remove_prefix(length);
    }
    return text;
}

bool isUtf8(std::string_view bytes) {
    while (!bytes.empty()) {
        char32_t codePoint = 0;
        const std::size_t length = decodeSequence(bytes, codePoint);
        if (length == 0)
            return false;
        bytes.remove_prefix(length);
    }
    return true;
}

std::string toUtf8(TextView text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (isHighSurrogate(unit) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
            appendUtf8(bytes, 0x10000 + ((unit & 0x3FFU) << 10) + (text[++i] & 0x3FFU));
        } else if (unit >= foreignByteFirst && unit <= foreignByteLast) {
            bytes += static_cast<char>(unit & 0xFFU);
        } else {
            appendUtf8(bytes, isHighSurrogate(unit) || isLowSurrogate(unit) ? replacement : unit);
        }
    }
    return bytes;
}

Text TogliAmp(TextView text) {
    return replaced(text, u"&", u"");
}

Text doubledAmp(TextView text) {
    return replaced(text, u"&", u"&&");
}

Text trimmed(TextView text) {
    const auto first = text.find_first_not_of(u' ');
    if (first == TextView::npos)
        return {};
    return Text(text.substr(first, text.find_last_not_of(u' ') - first + 1));
}

Text replaced(TextView text, TextView from, TextView to) {
    Text result;
    while (true) {
        const auto hit = text.find(from);
        result += text.substr(0, hit);
        if (hit == TextView::npos)
            return result;
        result += to;
        text.remove_prefix(hit + from.size());
    }
}

Text lowered(TextView text) {
    Text result(text);
    for (char16_t& unit : result) {
        if (unit >= u'A' && unit <= u'Z')
            unit = static_cast<char16_t>(unit - u'A' + u'a');
    }
    return result;
}

TextView firstLine(TextView text) {
    return text.substr(0, text.find_first_of(u"\r\n"));
}

Text oneLine(TextView text) {
    return replaced(replaced(text, u"\n", lineFeedMark), u"\r", carriageReturnMark);
}

Text fromOneLine(TextView line) {
    return replaced(replaced(line, lineFeedMark, u"\n"), carriageReturnMark, u"\r");
}

TextView afterLast(TextView text, char16_t separator) {
    const auto last = text.rfind(separator);
    return last == TextView::npos ? text : text.substr(last + 1);
}

} // namespace base
