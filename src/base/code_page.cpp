#include "base/code_page.h"

#include <algorithm>
#include <iconv.h>
#include <string>
#include <utility>

namespace base {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool isSingleByte(int number) {
    return number == 874 || (number >= 1250 && number <= 1258);
}

} // namespace

CodePage::CodePage(int number) {
    for (std::size_t byte = 0; byte < units_.size(); ++byte)
        units_[byte] = static_cast<char16_t>(byte);
    const std::string name = "CP" + std::to_string(isSingleByte(number) ? number : 1252);
    iconv_t converter = iconv_open("UTF-16LE", name.c_str());
    // Without the system's conversion tables, files can still be read: bytes beyond ASCII map to the code
    // unit of the same value.
    if (converter == iconv_t(-1)) // NOLINT(performance-no-int-to-ptr): the documented error value
        return;
    for (std::size_t byte = 0x80; byte < units_.size(); ++byte) {
        char in = static_cast<char>(byte);
        std::array<char, 4> out{};
        char* from = &in;
        char* to = out.data();
        std::size_t fromLeft = 1;
        std::size_t toLeft = out.size();
        iconv(converter, nullptr, nullptr, nullptr, nullptr);
        iconv(converter, &from, &fromLeft, &to, &toLeft);
        // Without this flush, a page with combining marks holds a letter back and waits for its mark.
        iconv(converter, nullptr, nullptr, &to, &toLeft);
        if (toLeft == 2)
            units_[byte] =
                static_cast<char16_t>(static_cast<unsigned char>(out[0]) |
                                      static_cast<unsigned>(static_cast<unsigned char>(out[1])) << 8U);
    }
    iconv_close(converter);
}

int CodePage::numberForLanguage(std::string_view language) {
    // The "language for non-Unicode programs" of each language. 1252 is the default; these are the
    // exceptions.
    static constexpr std::pair<std::string_view, int> pages[] = {
        {"bs", 1250}, {"cs", 1250}, {"hr", 1250}, {"hu", 1250}, {"pl", 1250}, {"ro", 1250}, {"sk", 1250},
        {"sl", 1250}, {"sq", 1250}, {"be", 1251}, {"bg", 1251}, {"kk", 1251}, {"ky", 1251}, {"mk", 1251},
        {"mn", 1251}, {"ru", 1251}, {"sr", 1251}, {"tt", 1251}, {"uk", 1251}, {"el", 1253}, {"az", 1254},
        {"tr", 1254}, {"uz", 1254}, {"he", 1255}, {"ar", 1256}, {"fa", 1256}, {"ur", 1256}, {"et", 1257},
        {"lt", 1257}, {"lv", 1257}, {"vi", 1258}, {"th", 874},
    };
    const auto* const row = std::find_if(std::begin(pages), std::end(pages),
                                         [&](const auto& page) { return page.first == language; });
    return row == std::end(pages) ? 1252 : row->second;
}

Text CodePage::decode(std::string_view bytes) const {
    Text text(bytes.size(), u'\0');
    std::transform(bytes.begin(), bytes.end(), text.begin(),
                   [&](char byte) { return units_[static_cast<unsigned char>(byte)]; });
    return text;
}

Text decodeFile(std::string_view bytes, const CodePage& page) {
    if (bytes.substr(0, byteOrderMark.size()) == byteOrderMark)
        return fromUtf8(bytes.substr(byteOrderMark.size()));
    return isUtf8(bytes) ? fromUtf8(bytes) : page.decode(bytes);
}

std::string encodeFile(TextView text) {
    const bool ascii = std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 0x80; });
    return (ascii ? std::string() : std::string(byteOrderMark)) + toUtf8(text);
}

} // namespace base
