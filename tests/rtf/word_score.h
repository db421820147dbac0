// How alike two texts are, word by word.
#pragma once

#include "base/text.h"

#include <algorithm>
#include <vector>

namespace scoring {

// The words of a text; quotes, bullets, ties and invisible signs make no difference, and each sign of
// Chinese, Japanese and Korean is a word.
inline std::vector<base::Text> words(const base::Text& text) {
    std::vector<base::Text> all;
    bool open = false;
    for (const char16_t unit : text) {
        const bool invisible = unit == 0xAD || unit == 0x200B || unit == 0xFEFF || unit == 0xFFFC;
        const bool blank = unit <= u' ' || unit == 0xA0 || (unit >= 0x2000 && unit <= 0x200A) ||
                           unit == 0x2028 || unit == 0x3000 ||
                           base::Text(u"•●○▪·\uF0B7\uF06F\uF0A7‣◦").find(unit) != base::Text::npos;
        const bool wordOfItsOwn = (unit >= 0x3040 && unit <= 0x30FF) || (unit >= 0x3400 && unit <= 0x9FFF) ||
                                  (unit >= 0xAC00 && unit <= 0xD7AF);
        if (invisible)
            continue;
        if (!blank && (!open || wordOfItsOwn))
            all.emplace_back();
        open = !blank && !wordOfItsOwn;
        if (blank)
            continue;
        const bool single = unit == 0x2018 || unit == 0x2019;
        const bool twofold = unit == 0x201C || unit == 0x201D;
        all.back() += single ? u'\'' : twofold ? u'"' : unit == 0x2011 || unit == 0x2010 ? u'-' : unit;
    }
    return all;
}

// From 0 to 1: twice the longest common sequence of words over the number of words; of long texts the common
// words in any order, which costs less.
inline double similarity(const base::Text& a, const base::Text& b) {
    std::vector<base::Text> left = words(a);
    std::vector<base::Text> right = words(b);
    if (left == right)
        return 1;
    std::size_t common = 0;
    if (std::max(left.size(), right.size()) > 4000) {
        std::sort(left.begin(), left.end());
        std::sort(right.begin(), right.end());
        std::vector<base::Text> both;
        std::set_intersection(left.begin(), left.end(), right.begin(), right.end(), std::back_inserter(both));
        common = both.size();
    } else {
        std::vector<std::size_t> row(right.size() + 1);
        for (const base::Text& word : left) {
            std::size_t diagonal = 0;
            for (std::size_t i = 0; i < right.size(); ++i) {
                const std::size_t above = row[i + 1];
                row[i + 1] = word == right[i] ? diagonal + 1 : std::max(above, row[i]);
                diagonal = above;
            }
        }
        common = row.back();
    }
    return 2.0 * static_cast<double>(common) / static_cast<double>(left.size() + right.size());
}

} // namespace scoring
