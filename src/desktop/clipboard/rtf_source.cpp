#include "desktop/clipboard/rtf_source.h"

#include "rtf/read/reader.h"

#include <algorithm>
#include <cstdint>

namespace desktop {

namespace {

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

} // namespace desktop
