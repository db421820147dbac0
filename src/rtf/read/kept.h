// Ranges of RTF that are kept as they are, because the editor has no place for what they tell.
#pragma once

#include "rtf/read/tokens.h"

#include <cstdint>
#include <set>
#include <string>
#include <string_view>

namespace rtf {

// The numbers of the file's own tables that kept ranges refer to.
struct KeptReferences {
    std::set<std::int32_t> fonts;
    std::int32_t highestColour = -1; // index

    // Adds what the range refers to.
    void note(std::string_view range);
};

// Appends the rest of the group in which the tokenizer stands, behind the word that began it and with the
// brace that closes it, to `out` as 7-bit ASCII: other bytes and binary data as hexadecimal digits. Where the
// file ends first, the group is closed.
void copyGroup(Tokenizer& tokens, std::string_view word, std::string& out);

// Passes over the rest of the group in which the tokenizer stands, with the brace that closes it.
void skipGroup(Tokenizer& tokens);

} // namespace rtf
