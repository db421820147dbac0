// The font and colour tables of a written file.
#pragma once

#include "rtf/document.h"
#include "rtf/hash.h"

#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace rtf {

// Appends text as RTF. Letters beyond ASCII become \u numbers, with "?" for readers without Unicode.
void appendText(TextView text, std::string& out);

// Assigns a number to each font; fonts of kept ranges keep theirs.
class FontNumbers {
public:
    explicit FontNumbers(const Document& document);

    std::int32_t number(std::uint32_t font) const { return numbers_[font]; }

    // The font of bullet characters.
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

// Assigns an index to each colour in use; colours of kept ranges keep theirs.
class ColourIndices {
public:
    explicit ColourIndices(const Document& document);

    // The colour's index; `colour` must not be automatic.
    std::size_t index(const Colour& colour) const;

    void appendTable(std::string& out) const;

private:
    void add(const Colour& colour);

    std::vector<Colour> colours_;
    std::map<std::uint32_t, std::size_t> indices_;
};

} // namespace rtf
