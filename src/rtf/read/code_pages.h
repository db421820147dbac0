// The code pages used in RTF: single-byte and double-byte, Windows, DOS and Macintosh.
#pragma once

#include "base/text.h"

#include <array>
#include <memory>
#include <string_view>
#include <vector>

namespace rtf {

// The code page of a font's character set (0 to 255); 0 if the set means the document's code page.
int codePageOfCharset(int charset);

// Decodes bytes of any code page. Tables and converters are created on first use.
class CodePages {
public:
    CodePages();
    ~CodePages();
    CodePages(CodePages&&) noexcept;
    CodePages& operator=(CodePages&&) noexcept;

    // Appends the decoded bytes, which must be complete letters. An unknown page counts as 1252. An
    // undecodable byte becomes U+FFFD in a double-byte page, and the unit of the same value in a single-byte
    // page.
    void append(int codePage, std::string_view bytes, base::Text& out);

private:
    class Page;

    Page& page(int number);

    std::vector<std::unique_ptr<Page>> pages_;
    Page* last_ = nullptr;
};

} // namespace rtf
