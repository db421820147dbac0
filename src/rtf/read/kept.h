// Kept ranges: RTF that is preserved unchanged, because the editor cannot represent it.
#pragma once

#include "rtf/read/tokens.h"

#include <cstdint>
#include <set>
#include <string>
#include <string_view>

namespace rtf {

// The entries of the file's font and colour tables that kept ranges refer to.
struct KeptReferences {
    std::set<std::int32_t> fonts;
    std::int32_t highestColour = -1; // index

    // Adds the references of this range.
    void note(std::string_view range);
};

// Appends the rest of the current group to `out`, from after its first control word `word` to its closing
// brace, as 7-bit ASCII: other bytes and binary data become hexadecimal digits. Closes the group if the file
// ends first.
void copyGroup(Tokenizer& tokens, std::string_view word, std::string& out);

// Skips the rest of the current group including its closing brace.
void skipGroup(Tokenizer& tokens);

} // namespace rtf
