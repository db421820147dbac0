#include "rtf/hash.h"

#include <functional>
#include <string>

namespace rtf {

namespace {

std::size_t mix(std::size_t seed, std::size_t value) {
    return (seed ^ value) * 0x9E3779B97F4A7C15ULL ^ seed >> 29U;
}

std::size_t numberOf(const Colour& colour) {
    return static_cast<std::size_t>(colour.automatic) << 24U | static_cast<std::size_t>(colour.red) << 16U |
           static_cast<std::size_t>(colour.green) << 8U | colour.blue;
}

} // namespace

std::size_t PartHash::operator()(const CharFormat& format) const {
    const std::size_t marks = format.bold | format.italic << 1U | format.underline << 2U |
                              format.strike << 3U | format.hidden << 4U | format.capitals << 5U |
                              format.smallCapitals << 6U | static_cast<unsigned>(format.raised) << 7U;
    std::size_t hash = mix(marks, format.font);
    hash = mix(hash, static_cast<std::size_t>(format.link) << 16U | format.size);
    return mix(hash, numberOf(format.colour) << 32U | numberOf(format.background));
}

std::size_t PartHash::operator()(const ParagraphFormat& format) const {
    std::size_t hash = mix(static_cast<std::size_t>(format.alignment),
                           (format.bullet ? 1U : 0U) + (format.pageBreakBefore ? 2U : 0U));
    for (const std::int32_t measure :
         {format.leftIndent, format.rightIndent, format.firstIndent, format.spaceBefore, format.spaceAfter})
        hash = mix(hash, static_cast<std::uint32_t>(measure));
    return mix(mix(hash, std::hash<std::string>()(format.list)), std::hash<std::string>()(format.kept));
}

std::size_t PartHash::operator()(const Font& font) const {
    return mix(std::hash<Text>()(font.name), static_cast<std::size_t>(font.charset));
}

} // namespace rtf
