// How text files are read and written: UTF-8, and the single-byte code page of the user's language for files
// that are older or come from elsewhere.
#pragma once

#include "base/text.h"

#include <array>
#include <string>
#include <string_view>

namespace base {

// One single-byte code page of the Windows family, with its tables.
class CodePage {
public:
    // `number` is one of 1250 to 1258 or 874; any other is taken as 1252. A byte that the page leaves
    // undefined stands for the unit of the same value, as that system has it, so that no two bytes read
    // alike.
    explicit CodePage(int number = 1252);

    // The number of the page that goes with a language: `language` is a code of ISO 639-1 in small letters.
    static int numberForLanguage(std::string_view language);

    Text decode(std::string_view bytes) const;

private:
    std::array<char16_t, 256> units_{};
};

// The text of a file: UTF-8 when it begins with the byte-order mark or is all valid, in the page otherwise.
// Bytes of a page hardly ever happen to be whole sequences of UTF-8.
Text decodeFile(std::string_view bytes, const CodePage& page);

// The bytes of a file, the same for users of every language: UTF-8, with the byte-order mark unless the text
// is all ASCII.
std::string encodeFile(TextView text);

} // namespace base
