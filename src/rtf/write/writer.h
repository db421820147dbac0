// Writes a document as RTF.
#pragma once

#include "rtf/document.h"

#include <string>

namespace rtf {

// The document as 7-bit ASCII. Reading it back yields an equal document. All indices in the document must be
// valid.
std::string write(const Document& document);

} // namespace rtf
