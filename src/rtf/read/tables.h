// The tables at the head of a file: fonts and colours by number.
#pragma once

#include "rtf/document.h"

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace rtf {

// A font of the file.
struct FontEntry {
    Font font;
    int codePage = 0;           // 0: that of the document
    std::uint32_t index = none; // in the document, once it is used
};

// Collects the font table while it is read, then tells fonts by number.
class FontTable {
public:
    FontTable();

    // While the table is read: a new entry, what is told of it, a part of its name.
    void begin(std::int32_t number);
    void charset(std::int32_t number);
    void codePage(std::int32_t number);
    void name(TextView part);
    void end();

    // The code page of the entry in hand; 0: that of the document.
    int entryPage() const;

    // A number that the table does not hold, or holds without a name, gives the usual font.
    FontEntry& find(std::int32_t number);

private:
    std::unordered_map<std::int32_t, FontEntry> entries_;
    FontEntry unknown_;
    FontEntry* current_ = nullptr;
    bool named_ = false;
};

// Collects the colour table while it is read, then tells colours by index.
class ColourTable {
public:
    // While the table is read. `part` is 0 red, 1 green, 2 blue; `value` is clamped to 0..255.
    void part(int part, std::int32_t value);
    void endEntry();

    // Automatic for an index that the table does not hold.
    Colour find(std::int32_t index) const;

    // The first `count` entries, automatic ones where the table is shorter.
    std::vector<Colour> first(std::size_t count) const;

private:
    std::vector<Colour> colours_;
    Colour current_;
};

} // namespace rtf
