// The tables at the start of a file: fonts and colours by number.
#pragma once

#include "rtf/document.h"

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace rtf {

// An entry of the font table.
struct FontEntry {
    Font font;
    int codePage = 0;           // 0: the document's code page
    std::uint32_t index = none; // index in the document's fonts once it is used
};

// The font table: filled while the file's table is read, then looked up by number.
class FontTable {
public:
    FontTable();

    // While reading: starts an entry, sets its properties, appends to its name, ends it.
    void begin(std::int32_t number);
    void charset(std::int32_t number);
    void codePage(std::int32_t number);
    void name(TextView part);
    void end();

    // The code page of the current entry; 0: the document's code page.
    int entryPage() const;

    // The entry of this number; the default font if it does not exist or has no name.
    FontEntry& find(std::int32_t number);

private:
    std::unordered_map<std::int32_t, FontEntry> entries_;
    FontEntry unknown_;
    FontEntry* current_ = nullptr;
    bool named_ = false;
};

// The colour table: filled while the file's table is read, then looked up by index.
class ColourTable {
public:
    // While reading. `part` is 0 red, 1 green, 2 blue; `value` is clamped to 0..255.
    void part(int part, std::int32_t value);
    void endEntry();

    // The colour with this index; automatic if it does not exist.
    Colour find(std::int32_t index) const;

    // The first `count` entries, padded with automatic colours.
    std::vector<Colour> first(std::size_t count) const;

private:
    std::vector<Colour> colours_;
    Colour current_;
};

} // namespace rtf
