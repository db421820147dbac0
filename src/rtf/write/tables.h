// The numbers under which a written file calls its fonts and colours.
#pragma once

#include "rtf/document.h"
#include "rtf/hash.h"

#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace rtf {

// Appends text as RTF, letters beyond ASCII as numbers with a question mark for readers without Unicode.
void appendText(TextView text, std::string& out);

// Gives each font a number; fonts of kept ranges keep theirs.
class FontNumbers {
public:
    explicit FontNumbers(const Document& document);

    std::int32_t number(std::uint32_t font) const { return numbers_[font]; }

    // The font of the sign in front of a bullet paragraph.
    std::int32_t bulletNumber() const { return bullet_; }

    void appendTable(std::string& out) const;

private:
    void add(std::int32_t number, const Font& font);
    std::int32_t numberOf(const Font& font);

    std::map<std::int32_t, Font> fonts_;
    std::unordered_map<Font, std::int32_t, PartHash> known_;
    std::vector<std::int32_t> numbers_;
    std::int32_t nextFree_ = 0;
    std::int32_t bullet_ = -1;
};

// Gives each colour in use an index; colours of kept ranges keep theirs.
class ColourIndices {
public:
    explicit ColourIndices(const Document& document);

    // Not for the automatic colour.
    std::size_t index(const Colour& colour) const;

    void appendTable(std::string& out) const;

private:
    void add(const Colour& colour);

    std::vector<Colour> colours_;
    std::map<std::uint32_t, std::size_t> indices_;
};

} // namespace rtf
