// The system's single-byte code page, and the rule that no text is lost when it does not fit.
#pragma once

#include "base/text.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace base {

// One single-byte code page of the Windows family, with its tables.
class CodePage {
public:
    // `number` is one of 1250 to 1258 or 874; any other is taken as 1252. A byte that the page leaves
    // undefined stands for the unit of the same value, as that system has it, so that every byte survives
    // reading and writing.
    explicit CodePage(int number = 1252);

    // The number of the page that goes with a language: `language` is a code of ISO 639-1 in small letters.
    static int numberForLanguage(std::string_view language);

    Text decode(std::string_view bytes) const;

    // Empty when a unit of the text has no place in the page.
    std::optional<std::string> encode(TextView text) const;

private:
    std::array<char16_t, 256> units_{};
};

// The text of a file: UTF-8 when it begins with the byte-order mark, in the page otherwise.
Text decodeFile(std::string_view bytes, const CodePage& page);

// The bytes of a file: in the page when all of the text fits, else UTF-8 with the byte-order mark.
std::string encodeFile(TextView text, const CodePage& page);

} // namespace base
