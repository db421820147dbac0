// Rules for text. Inside the program text is UTF-16; positions and lengths count code units.
#pragma once

#include <string>
#include <string_view>

namespace base {

using Text = std::u16string;
using TextView = std::u16string_view;

// Convert from and to UTF-8. File names may hold any byte: a byte that is not valid UTF-8 becomes the lone
// surrogate U+DC00 + byte and is converted back to that byte, so every path survives. Other lone surrogates
// are written as U+FFFD.
Text fromUtf8(std::string_view bytes);
std::string toUtf8(TextView text);

// True if the bytes are valid UTF-8 throughout; true for no bytes.
bool isUtf8(std::string_view bytes);

// Removes every "&": a language entry with a menu mnemonic becomes plain text.
Text TogliAmp(TextView text);

// Doubles every "&", for a label that would take a single one as a mnemonic.
Text doubledAmp(TextView text);

// Removes blanks at both ends; other white space stays.
Text trimmed(TextView text);

// Replaces every occurrence of `from` (not empty) by `to`, from left to right without overlap.
Text replaced(TextView text, TextView from, TextView to);

// Converts the letters A to Z to lower case; other letters stay.
Text lowered(TextView text);

// The text before the first line break (CR or LF); the whole text if there is none.
TextView firstLine(TextView text);

// Encode a text as one line of a text file and decode it again. A line break, which a file name may contain,
// is encoded as a NUL and a letter.
Text oneLine(TextView text);
Text fromOneLine(TextView line);

// The text after the last `separator`; the whole text if there is none.
TextView afterLast(TextView text, char16_t separator);

} // namespace base
