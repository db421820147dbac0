#include "desktop/clipboard/rtf_source.h"

#include "rtf/read/reader.h"

#include <algorithm>
#include <cstdint>

namespace desktop {

namespace {

// The source without a byte order mark and blanks before its first brace: they are not part of the text.
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
            // \uc0 holds for this symbol only: it has no substitute character after it.
            bytes += "{\\uc0\\u" + std::to_string(static_cast<std::int16_t>(unit)) + " }";
    }
    return bytes;
}

} // namespace desktop
