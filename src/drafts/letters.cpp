#include "drafts/letters.h"

#include <algorithm>

namespace drafts {

namespace {

struct Range {
    char16_t first;
    char16_t last;
};

template <std::size_t count>
bool isIn(const Range (&ranges)[count], char16_t unit) {
    return std::any_of(std::begin(ranges), std::end(ranges),
                       [&](const Range& range) { return unit >= range.first && unit <= range.last; });
}

} // namespace

bool isBlank(char16_t unit) {
    return unit <= u' ' || unit == 0x7F || unit == 0x85 || (unit >= 0x2028 && unit <= 0x2029) ||
           unit == 0x3000 || unit == 0xFEFF;
}

bool isLetter(char16_t unit) {
    static constexpr Range punctuation[] = {
        {0x00, 0x2F},     {0x3A, 0x40},     {0x5B, 0x60},     {0x7B, 0xA9},     {0xAB, 0xB4},
        {0xB6, 0xB9},     {0xBB, 0xBF},     {0x05BE, 0x05BE}, {0x05F3, 0x05F4}, {0x060C, 0x061F},
        {0x06D4, 0x06D4}, {0x0964, 0x0965}, {0x0F08, 0x0F14}, {0x2000, 0x206F}, {0x3000, 0x303F},
        {0xFEFF, 0xFEFF}, {0xFF00, 0xFF0F}, {0xFF1A, 0xFF20},
    };
    return !isIn(punctuation, unit);
}

bool isUnspaced(char16_t unit) {
    static constexpr Range scripts[] = {
        {0x0E00, 0x0FFF}, {0x1000, 0x109F}, {0x1780, 0x17FF}, {0x3000, 0x30FF},
        {0x3400, 0x9FFF}, {0xD840, 0xD88F}, {0xFF00, 0xFFEF},
    };
    return isIn(scripts, unit);
}

base::TextView stripped(base::TextView text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

base::Text collapsed(base::TextView text) {
    base::Text result;
    result.reserve(text.size());
    for (const char16_t unit : stripped(text)) {
        if (!isBlank(unit))
            result += unit;
        else if (result.back() != u' ')
            result += u' ';
    }
    return result;
}

bool needsBlankBetween(base::TextView before, base::TextView after) {
    if (before.empty() || after.empty() || isBlank(before.back()) || isBlank(after.front()))
        return false;
    return !isUnspaced(before.back()) || !isUnspaced(after.front());
}

std::vector<base::TextView> lines(base::TextView text) {
    std::vector<base::TextView> result;
    while (!text.empty()) {
        const auto end = text.find_first_of(u"\r\n");
        result.push_back(text.substr(0, end));
        if (end == base::TextView::npos)
            break;
        text.remove_prefix(end + (text.substr(end, 2) == u"\r\n" ? 2 : 1));
    }
    return result;
}

} // namespace drafts
