#include "aids/checked_words.h"

#include "drafts/letters.h"
#include "moments/word_units.h"

#include <algorithm>
#include <iterator>

namespace aids {

namespace {

constexpr std::size_t longestWord = 64;        // units
constexpr std::size_t longestAbbreviation = 6; // units
constexpr char16_t softHyphen = 0x00AD;
constexpr base::TextView apostrophes = u"'\u2019";
constexpr base::TextView hyphens = u"-\u2010\u2011";
// Signs that are parts of a word between two letters of it.
constexpr base::TextView joiners = u"'\u2019-\u2010\u2011\u00AD\u00B7\u200C\u200D";

bool isOneOf(base::TextView signs, char16_t unit) {
    return signs.find(unit) != base::TextView::npos;
}

bool isDigit(char16_t unit) {
    return (unit >= u'0' && unit <= u'9') || (unit >= 0x0660 && unit <= 0x0669);
}

// Pictographs, symbols and what has no meaning of its own are no letters.
bool isWordUnit(char16_t unit) {
    const bool symbol = (unit >= 0x2070 && unit <= 0x2BFF) || (unit >= 0xE000 && unit <= 0xF8FF) ||
                        (unit >= 0xFE00 && unit <= 0xFE0F) || unit >= 0xFFF0 ||
                        (unit >= 0xD83C && unit <= 0xD83E);
    return drafts::isLetter(unit) && !symbol;
}

// An address, a path or the name of a file.
bool isAddress(base::TextView run) {
    if (run.find_first_of(u"@_\\") != base::TextView::npos || run.find(u"://") != base::TextView::npos)
        return true;
    for (std::size_t dot = run.find(u'.'); dot != base::TextView::npos; dot = run.find(u'.', dot + 1)) {
        const bool between = dot > 0 && dot + 1 < run.size() && isWordUnit(run[dot - 1]);
        if (between && (isDigit(run[dot + 1]) || (run[dot + 1] >= u'a' && run[dot + 1] <= u'z')) &&
            (dot < 2 || isWordUnit(run[dot - 2])))
            return true;
    }
    return false;
}

std::size_t endOfWord(base::TextView run, std::size_t begin) {
    std::size_t end = begin + 1;
    while (end < run.size() && (isWordUnit(run[end]) || (isOneOf(joiners, run[end]) && end + 1 < run.size() &&
                                                         isWordUnit(run[end + 1]))))
        ++end;
    return end;
}

bool canBeChecked(base::TextView word, const Script& script) {
    return word.size() > 1 && word.size() <= longestWord && std::none_of(word.begin(), word.end(), isDigit) &&
           std::any_of(word.begin(), word.end(), [&](char16_t unit) { return script.has(unit); });
}

} // namespace

Script Script::of(std::string_view tag) {
    static constexpr struct {
        std::string_view languages; // two letters each
        char16_t first;
        char16_t last;
    } rows[] = {
        {"be bg kk ky mk mn ru sr tg tt uk", 0x0400, 0x052F},
        {"el", 0x0370, 0x03FF},
        {"hy", 0x0530, 0x058F},
        {"he yi", 0x0590, 0x05FF},
        {"ar fa ku ps ug ur", 0x0600, 0x06FF},
        {"hi mr ne sa", 0x0900, 0x097F},
        {"bn as", 0x0980, 0x09FF},
        {"gu", 0x0A80, 0x0AFF},
        {"ta", 0x0B80, 0x0BFF},
        {"te", 0x0C00, 0x0C7F},
        {"kn", 0x0C80, 0x0CFF},
        {"ml", 0x0D00, 0x0D7F},
        {"th", 0x0E00, 0x0E7F},
        {"ka", 0x10A0, 0x10FF},
        {"ko", 0xAC00, 0xD7A3},
    };
    const std::string_view language = tag.substr(0, tag.find('_'));
    const bool inLatin = tag.find("Latn") != std::string_view::npos;
    Script script;
    for (const auto& row : rows) {
        if (language.size() == 2 && !inLatin && row.languages.find(language) != std::string_view::npos) {
            script.first_ = row.first;
            script.last_ = row.last;
        }
    }
    return script;
}

bool Script::has(char16_t unit) const {
    if (first_ != 0)
        return unit >= first_ && unit <= last_;
    const char16_t small = unit | 0x20U;
    return (small >= u'a' && small <= u'z') || (unit >= 0xC0 && unit <= 0x02AF && isWordUnit(unit)) ||
           (unit >= 0x1E00 && unit <= 0x1EFF);
}

std::vector<CheckedWord> checkedWords(base::TextView text, const Script& script) {
    std::vector<CheckedWord> words;
    for (std::size_t begin = 0; begin < text.size();) {
        if (moments::isBlank(text[begin])) {
            ++begin;
            continue;
        }
        std::size_t end = begin;
        while (end < text.size() && !moments::isBlank(text[end]))
            ++end;
        const base::TextView run = text.substr(begin, end - begin);
        if (run.size() <= longestRun && !isAddress(run)) {
            for (std::size_t at = 0; at < run.size();) {
                if (!isWordUnit(run[at])) {
                    // The second half of a pictograph is no letter either.
                    at += run[at] >= 0xD83C && run[at] <= 0xD83E ? 2 : 1;
                    continue;
                }
                const std::size_t behind = endOfWord(run, at);
                const base::TextView word = run.substr(at, behind - at);
                const bool dotted = word.size() <= longestAbbreviation && run.substr(behind, 1) == u".";
                if (canBeChecked(word, script))
                    words.push_back({static_cast<std::int32_t>(begin + at),
                                     static_cast<std::int32_t>(word.size()),
                                     run.substr(at, word.size() + (dotted ? 1 : 0))});
                at = behind;
            }
        }
        begin = end;
    }
    return words;
}

base::Text dictionaryForm(base::TextView letters) {
    base::Text form;
    for (const char16_t unit : letters)
        if (unit != softHyphen)
            form += isOneOf(apostrophes, unit) ? u'\'' : isOneOf(hyphens, unit) ? u'-' : unit;
    if (form.ends_with(u'.'))
        form.pop_back();
    return form;
}

} // namespace aids
