// From RTF to a document.
#pragma once

#include "rtf/document.h"

#include <string_view>

namespace rtf {

// True for bytes that begin as RTF does, be it behind a byte-order mark or white space.
bool isRtf(std::string_view bytes);

// Reads bytes of RTF, however damaged: what can be understood is taken, nothing throws but std::bad_alloc.
// Time and memory grow with the number of bytes alone.
Document read(std::string_view bytes);

} // namespace rtf
