// From a document to RTF.
#pragma once

#include "rtf/document.h"

#include <string>

namespace rtf {

// The document as 7-bit ASCII; read again it gives an equal document. Every index of the document has to be
// valid.
std::string write(const Document& document);

} // namespace rtf
