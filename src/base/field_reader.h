// Reads the fields of a comma-separated text one after the other.
#pragma once

#include "base/text.h"

#include <cstddef>
#include <cstdint>

namespace base {

// The reader of one text. It skips blanks before a field. A field that starts with a double quote ends at the
// next double quote; any other ends at a comma or at the end of the line. An empty line is an empty field.
class FieldReader {
public:
    explicit FieldReader(Text text) : text_(std::move(text)) {}

    // The next field, unconverted. Throws Failure at the end of the text.
    Text text();

    // The next field as a number; 0 if it is not one. Throws Failure at the end of the text or if the number
    // does not fit into 16 bits; that field is consumed too.
    std::int16_t int16();

private:
    Text text_;
    std::size_t at_ = 0;
};

} // namespace base
