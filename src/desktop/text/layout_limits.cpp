#include "desktop/text/layout_limits.h"

#include <algorithm>

namespace desktop {

namespace {

constexpr std::size_t longestParagraph = 10'000'000; // units; Qt needs 45 bytes for each
constexpr std::size_t longestWord = 10'000;          // units; takes 10 ms

bool endsParagraph(char16_t unit) {
    return unit == u'\n' || unit == u'\r';
}

// A line may break here: at blanks and hyphens, and between East Asian characters.
bool endsWord(char16_t unit) {
    return unit <= u' ' || unit == u'-' || (unit >= 0x2000 && unit < 0x2070) || unit >= 0x2E80;
}

// True if more than `most` units follow each other without a unit for which `ends` is true.
template <typename Ends>
bool hasLongStretch(base::TextView text, std::size_t most, Ends ends) {
    while (text.size() > most) {
        const base::TextView stretch = text.substr(0, most);
        const auto last = std::find_if(stretch.rbegin(), stretch.rend(), ends);
        if (last == stretch.rend())
            return true;
        text.remove_prefix(static_cast<std::size_t>(stretch.rend() - last));
    }
    return false;
}

} // namespace

bool cannotBeLaidOut(base::TextView text) {
    return hasLongStretch(text, longestParagraph, endsParagraph);
}

bool cannotBeLaidOut(const rtf::Document& document) {
    std::size_t begin = 0;
    return std::any_of(
        document.paragraphs.begin(), document.paragraphs.end(), [&](const rtf::Paragraph& each) {
            const base::TextView text = base::TextView(document.text).substr(begin, each.length);
            begin += each.length;
            return cannotBeLaidOut(text);
        });
}

bool hasEndlessWord(QStringView paragraph) {
    return hasLongStretch({paragraph.utf16(), static_cast<std::size_t>(paragraph.size())}, longestWord,
                          endsWord);
}

} // namespace desktop
