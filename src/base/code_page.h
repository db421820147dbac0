// How text files are encoded: UTF-8 when written; when read, also the single-byte code page of the user's
// language, for files that are older or come from other programs.
#pragma once

#include "base/text.h"

#include <array>
#include <string>
#include <string_view>

namespace base {

// One single-byte code page of the Windows family, as a decoding table.
class CodePage {
public:
    // `number` is 1250 to 1258 or 874; any other number means 1252. A byte that the page leaves undefined
    // decodes to the code unit of the same value, as Windows does it, so no two bytes decode alike.
    explicit CodePage(int number = 1252);

    // The number of the code page for a language. `language` is an ISO 639-1 code in lower case.
    static int numberForLanguage(std::string_view language);

    Text decode(std::string_view bytes) const;

private:
    std::array<char16_t, 256> units_{};
};

// Decodes a file: as UTF-8 if it starts with the byte-order mark or is valid UTF-8 throughout, else by the
// code page. Text in a code page is almost never valid UTF-8 by chance.
Text decodeFile(std::string_view bytes, const CodePage& page);

// Encodes a file independently of the user's language: UTF-8, with the byte-order mark unless the text is
// pure ASCII.
std::string encodeFile(TextView text);

} // namespace base
