// Rules for text. Inside the program text is UTF-16, positions and lengths count its units.
#pragma once

#include <string>
#include <string_view>

namespace base {

using Text = std::u16string;
using TextView = std::u16string_view;

// UTF-8 both ways. A byte that is not valid UTF-8 (file names may hold any byte) becomes the lone unit U+DC00
// + byte and goes back as that byte, so no path is ever lost. Other lone surrogates are written as U+FFFD.
Text fromUtf8(std::string_view bytes);
std::string toUtf8(TextView text);

// True when all of these bytes are whole sequences of UTF-8, as they are when there are none.
bool isUtf8(std::string_view bytes);

// The text with every "&" removed: a language entry with a menu mnemonic, shown as plain text.
Text TogliAmp(TextView text);

// The text with every "&" doubled, for a label that takes a single one as a mnemonic.
Text doubledAmp(TextView text);

// The text without blanks at either end; other white space stays.
Text trimmed(TextView text);

// The text with every occurrence of `from` (not empty) replaced by `to`, found from the left without overlap.
Text replaced(TextView text, TextView from, TextView to);

// The text with the letters A to Z in lower case; others stay.
Text lowered(TextView text);

// What stands before the first line break, be it a CR or an LF; the whole text when there is none.
TextView firstLine(TextView text);

// The text as one line of a text file, and such a line as the text that it was: a line break in it, as a file
// name may hold one, stands there as a NUL and a letter.
Text oneLine(TextView text);
Text fromOneLine(TextView line);

// What stands behind the last `separator`; the whole text when there is none.
TextView afterLast(TextView text, char16_t separator);

} // namespace base
