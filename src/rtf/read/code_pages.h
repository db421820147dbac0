// The code pages of RTF: single-byte and double-byte, Windows, DOS and Macintosh.
#pragma once

#include "base/text.h"

#include <array>
#include <memory>
#include <string_view>
#include <vector>

namespace rtf {

// The code page that goes with a font's character set (0 to 255); 0 when the set leaves it to the document.
int codePageOfCharset(int charset);

// Decodes bytes of any code page, whose tables are made when first asked for.
class CodePages {
public:
    CodePages();
    ~CodePages();
    CodePages(CodePages&&) noexcept;
    CodePages& operator=(CodePages&&) noexcept;

    // Appends the text of the bytes, which hold whole letters. A page that the system does not know is taken
    // as 1252. What does not decode in a double-byte page becomes U+FFFD, a byte at a time; in a single-byte
    // page it stands for the unit of the same value.
    void append(int codePage, std::string_view bytes, base::Text& out);

private:
    class Page;

    Page& page(int number);

    std::vector<std::unique_ptr<Page>> pages_;
    Page* last_ = nullptr;
};

} // namespace rtf
