// Field instructions, as far as the editor can show their results.
#pragma once

#include "rtf/document.h"

#include <string>

namespace rtf {

// The target of a HYPERLINK instruction: an address, or "#name" for a bookmark in the document; empty for any
// other instruction.
Text linkTarget(TextView instruction);

// The character of a SYMBOL instruction; 0 for any other instruction.
char16_t symbolOf(TextView instruction);

// The instruction for this target; the inverse of linkTarget.
Text linkInstruction(TextView target);

} // namespace rtf
