// What the instruction of a field asks for, as far as an editor can show it.
#pragma once

#include "rtf/document.h"

#include <string>

namespace rtf {

// Where a HYPERLINK instruction leads: an address, "#name" for a place in the document, empty for any other
// instruction.
Text linkTarget(TextView instruction);

// The letter that a SYMBOL instruction stands for; 0 for any other instruction.
char16_t symbolOf(TextView instruction);

// The instruction that leads to `target`, the reverse of linkTarget.
Text linkInstruction(TextView target);

} // namespace rtf
