#include "rtf/read/code_pages.h"

#include "base/code_page.h"

#include <algorithm>
#include <cerrno>
#include <iconv.h>
#include <string>
#include <utility>

namespace rtf {

namespace {

bool isSystemPage(int number) {
    return number == 874 || (number >= 1250 && number <= 1258);
}

std::string converterName(int number) {
    static constexpr std::pair<int, const char*> names[] = {
        {708, "ISO-8859-6"},   {709, "ISO-8859-6"},     {819, "ISO-8859-1"}, {1361, "JOHAB"},
        {10000, "MACINTOSH"},  {10001, "SHIFT_JIS"},    {10002, "BIG5"},     {10003, "EUC-KR"},
        {10006, "MACGREEK"},   {10007, "MAC-CYRILLIC"}, {10008, "GB2312"},   {10029, "MAC-CENTRALEUROPE"},
        {20932, "EUC-JP"},     {20866, "KOI8-R"},       {21866, "KOI8-U"},   {28591, "ISO-8859-1"},
        {28592, "ISO-8859-2"}, {28595, "ISO-8859-5"},   {51932, "EUC-JP"},   {51949, "EUC-KR"},
        {54936, "GB18030"},    {65001, "UTF-8"},
    };
    const auto* const row = std::find_if(std::begin(names), std::end(names),
                                         [&](const auto& name) { return name.first == number; });
    return row == std::end(names) ? "CP" + std::to_string(number) : row->second;
}

} // namespace

int codePageOfCharset(int charset) {
    static constexpr std::pair<int, int> pages[] = {
        {0, 1252},   {77, 10000}, {78, 10001}, {79, 10003}, {80, 10008}, {81, 10002}, {85, 10006},
        {88, 10029}, {89, 10007}, {128, 932},  {129, 949},  {130, 1361}, {134, 936},  {136, 950},
        {161, 1253}, {162, 1254}, {163, 1258}, {177, 1255}, {178, 1256}, {186, 1257}, {204, 1251},
        {222, 874},  {238, 1250}, {254, 437},  {255, 850},
    };
    const auto* const row = std::find_if(std::begin(pages), std::end(pages),
                                         [&](const auto& page) { return page.first == charset; });
    return row == std::end(pages) ? 0 : row->second;
}

// One code page: a table if every letter is a single byte, otherwise a converter.
class CodePages::Page {
public:
    explicit Page(int number) : number_(number) {
        if (!isSystemPage(number))
            converter_ = iconv_open("UTF-16LE", converterName(number).c_str());
        if (hasConverter() && !beginsWithAscii())
            closeConverter();
        if (!hasConverter())
            fillTable(base::CodePage(number));
        else if (everyByteIsALetter())
            closeConverter();
    }

    ~Page() { closeConverter(); }
    Page(const Page&) = delete;
    Page& operator=(const Page&) = delete;

    int number() const { return number_; }

    void append(std::string_view bytes, base::Text& out) {
        if (hasConverter()) {
            convert(bytes, out);
            return;
        }
        const std::size_t before = out.size();
        out.resize(before + bytes.size());
        std::transform(bytes.begin(), bytes.end(), out.begin() + static_cast<std::ptrdiff_t>(before),
                       [&](char byte) { return table_[static_cast<unsigned char>(byte)]; });
    }

private:
    bool hasConverter() const {
        return converter_ != iconv_t(-1); // NOLINT(performance-no-int-to-ptr): the documented error value
    }

    void closeConverter() {
        if (hasConverter())
            iconv_close(converter_);
        converter_ = iconv_t(-1); // NOLINT(performance-no-int-to-ptr)
    }

    void fillTable(const base::CodePage& page) {
        for (unsigned byte = 0; byte < table_.size(); ++byte)
            table_[byte] = page.decode(std::string(1, static_cast<char>(byte)))[0];
    }

    // Rejects mainframe code pages, which are not based on ASCII: RTF is never written in them.
    bool beginsWithAscii() {
        base::Text letters;
        convert("AZaz09 ", letters);
        return letters == u"AZaz09 ";
    }

    // Fills the table if every byte is a letter of its own. Returns false for a multi-byte page.
    bool everyByteIsALetter() {
        for (unsigned byte = 0; byte < table_.size(); ++byte) {
            char in = static_cast<char>(byte);
            char* from = &in;
            std::size_t fromLeft = 1;
            std::array<char, 8> units{};
            char* to = units.data();
            std::size_t toLeft = units.size();
            iconv(converter_, nullptr, nullptr, nullptr, nullptr);
            const bool letter = iconv(converter_, &from, &fromLeft, &to, &toLeft) != std::size_t(-1);
            if (!letter && errno == EINVAL)
                return false;
            table_[byte] =
                letter && toLeft + 2 == units.size() ? unitAt(units.data()) : static_cast<char16_t>(byte);
        }
        return true;
    }

    static char16_t unitAt(const char* bytes) {
        return static_cast<char16_t>(static_cast<unsigned char>(bytes[0]) |
                                     static_cast<unsigned>(static_cast<unsigned char>(bytes[1])) << 8U);
    }

    void convert(std::string_view bytes, base::Text& out) {
        std::array<char, 512> units{};
        char* from = const_cast<char*>(bytes.data()); // NOLINT: iconv only reads it
        std::size_t fromLeft = bytes.size();
        iconv(converter_, nullptr, nullptr, nullptr, nullptr);
        while (fromLeft > 0) {
            char* to = units.data();
            std::size_t toLeft = units.size();
            const bool done = iconv(converter_, &from, &fromLeft, &to, &toLeft) != std::size_t(-1);
            const bool rubbish = !done && errno != E2BIG;
            for (const char* unit = units.data(); unit < to; unit += 2)
                out += unitAt(unit);
            if (!rubbish)
                continue;
            out += u'\uFFFD';
            ++from;
            --fromLeft;
            iconv(converter_, nullptr, nullptr, nullptr, nullptr);
        }
    }

    int number_;
    iconv_t converter_ = iconv_t(-1); // NOLINT(performance-no-int-to-ptr)
    std::array<char16_t, 256> table_{};
};

CodePages::CodePages() {
    pages_.push_back(std::make_unique<Page>(1252));
}

CodePages::~CodePages() = default;
CodePages::CodePages(CodePages&&) noexcept = default;
CodePages& CodePages::operator=(CodePages&&) noexcept = default;

CodePages::Page& CodePages::page(int number) {
    if (last_ != nullptr && last_->number() == number)
        return *last_;
    auto place = std::find_if(pages_.begin(), pages_.end(),
                              [&](const auto& known) { return known->number() == number; });
    if (place == pages_.end()) {
        // More code pages than exist: a malicious file must cost neither time nor memory.
        constexpr std::size_t mostPages = 64;
        if (pages_.size() == mostPages)
            return *pages_.front();
        place = pages_.insert(pages_.end(), std::make_unique<Page>(number));
    }
    last_ = place->get();
    return *last_;
}

void CodePages::append(int codePage, std::string_view bytes, base::Text& out) {
    page(codePage).append(bytes, out);
}

} // namespace rtf
