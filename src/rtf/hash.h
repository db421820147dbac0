// Hash functions for the parts of a document.
#pragma once

#include "rtf/document.h"

#include <cstddef>

namespace rtf {

// Hashes for the tables that hold each font, format and link once.
struct PartHash {
    std::size_t operator()(const CharFormat& format) const;
    std::size_t operator()(const ParagraphFormat& format) const;
    std::size_t operator()(const Font& font) const;
};

} // namespace rtf
