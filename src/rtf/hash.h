// Hashes of the parts of a document.
#pragma once

#include "rtf/document.h"

#include <cstddef>

namespace rtf {

// Hashes for the tables in which each font, format and link stands once.
struct PartHash {
    std::size_t operator()(const CharFormat& format) const;
    std::size_t operator()(const ParagraphFormat& format) const;
    std::size_t operator()(const Font& font) const;
};

} // namespace rtf
