#include "drafts/write/image_size.h"

#include <cstddef>

namespace drafts {

namespace {

constexpr int twipsInPixel = 1440 / 96; // RTF counts 1440 to the inch, pictures have 96 pixels
constexpr ImageSize unknown{1440, 1440};
constexpr int mostPixels = 20'000;

int numberAt(std::string_view bytes, std::size_t at, std::size_t count) {
    unsigned value = 0;
    for (std::size_t i = 0; i < count; ++i)
        value = value << 8U | static_cast<unsigned char>(bytes[at + i]);
    return static_cast<int>(value);
}

ImageSize fromPixels(int width, int height) {
    const bool sound = width > 0 && height > 0 && width <= mostPixels && height <= mostPixels;
    return sound ? ImageSize{width * twipsInPixel, height * twipsInPixel} : unknown;
}

// The markers of a JPEG file that begin a frame.
bool beginsFrame(int marker) {
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

} // namespace

ImageSize sizeInTwips(std::string_view bytes) {
    if (bytes.substr(0, 4) == "\x89PNG" && bytes.size() >= 24)
        return fromPixels(numberAt(bytes, 16, 4), numberAt(bytes, 20, 4));
    for (std::size_t at = 2; at + 9 <= bytes.size() && numberAt(bytes, at, 1) == 0xFF;) {
        const int marker = numberAt(bytes, at + 1, 1);
        if (beginsFrame(marker))
            return fromPixels(numberAt(bytes, at + 7, 2), numberAt(bytes, at + 5, 2));
        at += 2 + static_cast<std::size_t>(numberAt(bytes, at + 2, 2));
    }
    return unknown;
}

} // namespace drafts
