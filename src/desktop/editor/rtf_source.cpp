#include "desktop/editor/rtf_source.h"

#include "rtf/rtf_reader.h"

#include <algorithm>
#include <cstdint>

namespace desktop {

namespace {

base::Text decodeUtf16(std::string_view bytes, std::size_t low, std::size_t high) {
    base::Text text(bytes.size() / 2, u'\0');
    for (std::size_t i = 0; i < text.size(); ++i)
        text[i] = static_cast<char16_t>(static_cast<unsigned char>(bytes[2 * i + low]) |
                                        static_cast<unsigned char>(bytes[2 * i + high]) << 8U);
    return text;
}

// The source from its first brace on: a mark or blanks in front of it are no part of the text.
base::TextView withoutBlanks(base::TextView source) {
    return source.substr(std::min(source.find_first_not_of(u"\uFEFF \t\r\n"), source.size()));
}

} // namespace

bool isRtfSource(base::TextView source) {
    constexpr std::size_t longestOpening = 16;
    return rtf::isRtf(rtfBytes(withoutBlanks(source).substr(0, longestOpening)));
}

std::string rtfBytes(base::TextView source) {
    std::string bytes;
    bytes.reserve(source.size());
    for (const char16_t unit : withoutBlanks(source)) {
        if (unit < 0x80)
            bytes += static_cast<char>(unit);
        else
            // No more than this symbol is to do without a substitute.
            bytes += "{\\uc0\\u" + std::to_string(static_cast<std::int16_t>(unit)) + " }";
    }
    return bytes;
}

base::Text decodeText(std::string_view bytes, const base::CodePage& page) {
    if (bytes.starts_with("\xFF\xFE"))
        return decodeUtf16(bytes.substr(2), 0, 1);
    if (bytes.starts_with("\xFE\xFF"))
        return decodeUtf16(bytes.substr(2), 1, 0);
    return base::decodeFile(bytes, page);
}

} // namespace desktop
