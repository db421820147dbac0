// Reads RTF into a document.
#pragma once

#include "rtf/document.h"

#include <string_view>

namespace rtf {

// True for bytes that start like RTF, possibly after a byte-order mark and white space.
bool isRtf(std::string_view bytes);

// Parses RTF, however damaged: unintelligible parts are skipped, and nothing but std::bad_alloc is thrown.
// Time and memory grow linearly with the number of bytes.
Document read(std::string_view bytes);

} // namespace rtf
