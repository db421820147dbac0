#include "rtf/write/tables.h"

#include <algorithm>

namespace rtf {

namespace {

std::uint32_t keyOf(const Colour& colour) {
    return static_cast<std::uint32_t>(colour.red) << 16U | static_cast<std::uint32_t>(colour.green) << 8U |
           colour.blue;
}

// The escape or control word for this unit; null if it has none.
const char* wordOf(char16_t unit) {
    switch (unit) {
    case u'\t':
        return "\\tab ";
    case lineBreak:
        return "\\line ";
    case pageBreak:
        return "\\page ";
    case u'\\':
        return "\\\\";
    case u'{':
        return "\\{";
    case u'}':
        return "\\}";
    case u'\u00A0':
        return "\\~";
    case u'\u00AD':
        return "\\-";
    case u'\u2011':
        return "\\_";
    default:
        return nullptr;
    }
}

} // namespace

void appendText(TextView text, std::string& out) {
    for (const char16_t unit : text) {
        if (const char* const word = wordOf(unit)) {
            out += word;
        } else if (unit >= 0x20 && unit < 0x7F) {
            out += static_cast<char>(unit);
        } else {
            out += "\\u";
            out += std::to_string(static_cast<std::int16_t>(unit));
            out += '?';
        }
    }
}

FontNumbers::FontNumbers(const Document& document) {
    for (const NumberedFont& kept : document.keptTables.fonts)
        add(kept.number, kept.font);
    std::transform(document.fonts.begin(), document.fonts.end(), std::back_inserter(numbers_),
                   [this](const Font& font) { return numberOf(font); });
    if (std::any_of(document.paragraphFormats.begin(), document.paragraphFormats.end(),
                    [](const ParagraphFormat& format) { return format.bullet; }))
        bullet_ = numberOf({.name = u"Symbol", .charset = symbolCharset});
}

void FontNumbers::add(std::int32_t number, const Font& font) {
    fonts_.emplace(number, font);
    known_.try_emplace(font, number);
}

std::int32_t FontNumbers::numberOf(const Font& font) {
    if (const auto place = known_.find(font); place != known_.end())
        return place->second;
    while (fonts_.contains(nextFree_))
        ++nextFree_;
    add(nextFree_, font);
    return nextFree_;
}

void FontNumbers::appendTable(std::string& out) const {
    out += "{\\fonttbl";
    for (const auto& [number, font] : fonts_) {
        out += "{\\f" + std::to_string(number) + "\\fnil\\fcharset" + std::to_string(font.charset) + ' ';
        appendText(font.name, out);
        out += ";}";
    }
    out += "}\r\n";
}

ColourIndices::ColourIndices(const Document& document) : colours_(document.keptTables.colours) {
    if (colours_.empty())
        colours_.emplace_back();
    // Many readers treat the first entry as the automatic colour, whatever its value.
    for (std::size_t index = 1; index < colours_.size(); ++index)
        if (!colours_[index].automatic)
            indices_.try_emplace(keyOf(colours_[index]), index);
    for (const CharFormat& format : document.formats) {
        add(format.colour);
        add(format.background);
    }
}

void ColourIndices::add(const Colour& colour) {
    if (!colour.automatic && indices_.try_emplace(keyOf(colour), colours_.size()).second)
        colours_.push_back(colour);
}

std::size_t ColourIndices::index(const Colour& colour) const {
    return indices_.at(keyOf(colour));
}

void ColourIndices::appendTable(std::string& out) const {
    if (colours_.size() == 1 && colours_[0].automatic)
        return;
    out += "{\\colortbl ";
    for (const Colour& colour : colours_) {
        if (!colour.automatic)
            out += "\\red" + std::to_string(colour.red) + "\\green" + std::to_string(colour.green) +
                   "\\blue" + std::to_string(colour.blue);
        out += ';';
    }
    out += "}\r\n";
}

} // namespace rtf
