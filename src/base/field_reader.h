// Fields of a text, read one after the other in the manner of a comma-separated input.
#pragma once

#include "base/text.h"

#include <cstddef>
#include <cstdint>

namespace base {

// Reads the fields of one text. Blanks before a field are skipped; a field that begins with a double quote
// runs to the next double quote; any other ends at a comma or at the end of the line. An empty line is an
// empty field.
class FieldReader {
public:
    explicit FieldReader(Text text) : text_(std::move(text)) {}

    // The next field as it stands. Throws Failure past the end.
    Text text();

    // The next field as a number: 0 when it is none. Throws Failure past the end or when 16 bits do not hold
    // it; the field is used up in that case too.
    std::int16_t int16();

private:
    Text text_;
    std::size_t at_ = 0;
};

} // namespace base
