#include "aids/similar_names.h"

#include "aids/letter_case.h"

#include <algorithm>
#include <tuple>

namespace aids {

namespace {

constexpr std::size_t shortest = 3;    // units of a word in which a slip is likely
constexpr std::size_t shortWord = 4;   // units of one that differs from others in a single letter
constexpr std::size_t longWord = 8;    // units of one with two slips
constexpr std::size_t mostNames = 300; // a text with more has no speakers but many colons

bool isLetterOfName(char16_t unit) {
    return unit != u'.' && unit != u' ' && unit != u'-' && unit != u'\u00A0';
}

std::vector<base::Text> wordsOf(base::TextView name) {
    std::vector<base::Text> words;
    bool inWord = false;
    for (const char16_t unit : name) {
        if (!isLetterOfName(unit)) {
            inWord = false;
            continue;
        }
        if (!inWord)
            words.emplace_back();
        words.back() += lowered(unit);
        inWord = true;
    }
    return words;
}

// The number of letters that were left out, added, exchanged or swapped with the next.
std::size_t slips(base::TextView a, base::TextView b) {
    std::vector<std::vector<std::size_t>> rows(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
    for (std::size_t i = 0; i <= a.size(); ++i) {
        for (std::size_t k = 0; k <= b.size(); ++k) {
            if (i == 0 || k == 0) {
                rows[i][k] = i + k;
                continue;
            }
            const std::size_t same = a[i - 1] == b[k - 1] ? 0 : 1;
            rows[i][k] = std::min({rows[i - 1][k] + 1, rows[i][k - 1] + 1, rows[i - 1][k - 1] + same});
            if (i > 1 && k > 1 && a[i - 1] == b[k - 2] && a[i - 2] == b[k - 1])
                rows[i][k] = std::min(rows[i][k], rows[i - 2][k - 2] + 1);
        }
    }
    return rows[a.size()][b.size()];
}

bool hasDigit(base::TextView word) {
    return std::any_of(word.begin(), word.end(), [](char16_t unit) { return unit >= u'0' && unit <= u'9'; });
}

// One letter for another makes another name as often as a slip does, unless the name is long.
bool isSlip(base::Text a, base::Text b) {
    const std::size_t shorter = std::min(a.size(), b.size());
    const std::size_t longer = std::max(a.size(), b.size());
    if (shorter < shortest || longer - shorter > 2 || hasDigit(a) || hasDigit(b))
        return false;
    const std::size_t count = slips(a, b);
    if (shorter >= longWord)
        return count <= 2;
    std::sort(a.begin(), a.end());
    std::sort(b.begin(), b.end());
    return count == 1 && (shorter != longer || shorter > shortWord || a == b);
}

base::Text joined(const std::vector<base::Text>& words) {
    base::Text all;
    for (const base::Text& word : words)
        all += word;
    return all;
}

} // namespace

bool isOneName(base::TextView a, base::TextView b) {
    const std::vector<base::Text> first = wordsOf(a);
    const std::vector<base::Text> second = wordsOf(b);
    if (joined(first) == joined(second))
        return true;
    if (first.size() != second.size())
        return false;
    const auto [one, other] = std::mismatch(first.begin(), first.end(), second.begin());
    return std::equal(one + 1, first.end(), other + 1) && isSlip(*one, *other);
}

std::vector<SimilarName> similarNames(const std::map<base::Text, NameUse>& names) {
    std::vector<std::pair<base::Text, NameUse>> byUse(names.begin(), names.end());
    std::sort(byUse.begin(), byUse.end(), [](const auto& a, const auto& b) {
        return std::tuple(-a.second.count, a.second.position) <
               std::tuple(-b.second.count, b.second.position);
    });
    byUse.resize(std::min(byUse.size(), mostNames));
    std::vector<SimilarName> similar;
    for (auto name = byUse.begin(); name != byUse.end(); ++name) {
        const auto usual = std::find_if(byUse.begin(), name,
                                        [&](const auto& each) { return isOneName(each.first, name->first); });
        if (usual != name)
            similar.push_back({name->first, usual->first});
    }
    return similar;
}

} // namespace aids
