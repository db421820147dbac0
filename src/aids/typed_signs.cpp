#include "aids/typed_signs.h"

#include "drafts/letters.h"
#include "editor/text_edits.h"

#include <algorithm>
#include <vector>

namespace aids {

using lang::operator""_en;

namespace {

constexpr char16_t apostrophe = u'\u2019';
constexpr base::TextView narrowBlank = u"\u202F";
constexpr base::TextView blanks = u" \t\r\n\v\u00A0\u202F\uFFFC";
constexpr base::TextView openings = u"([{<-\u2013\u2014\u201C\u201E\u201A\u2018\u00AB\u2039\u00BF\u00A1";
constexpr std::int32_t paragraphWindow = 2000; // units

bool isOneOf(base::TextView signs, char16_t unit) {
    return signs.find(unit) != base::TextView::npos;
}

// True if a quotation mark is opened and not yet closed.
bool isOpen(base::TextView before, const Signs& signs) {
    const auto opened = before.rfind(signs.open.front());
    return opened != base::TextView::npos &&
           before.find(signs.close.back(), opened + 1) == base::TextView::npos;
}

} // namespace

Signs Signs::of(base::TextView row) {
    std::vector<base::Text> parts;
    while (!row.empty()) {
        const auto end = std::min(row.find(u' '), row.size());
        parts.emplace_back(row.substr(0, end));
        row.remove_prefix(std::min(end + 1, row.size()));
    }
    const bool isUsable = parts.size() == 5 && std::ranges::none_of(parts, &base::Text::empty);
    return isUsable ? Signs{parts[0], parts[1], parts[2], parts[3], parts[4]}
                    : Signs{u"\u201C", u"\u201D", u"\u2018", u"\u2019", u"\u2014"};
}

TypedSign quotationFor(char16_t straight, base::TextView before, const Signs& signs) {
    const char16_t neighbour = before.empty() ? u' ' : before.back();
    const bool opens = isOneOf(blanks, neighbour) || isOneOf(openings, neighbour);
    if (straight == u'\'') {
        return {1, drafts::isLetter(neighbour) ? base::Text(1, apostrophe)
                   : opens                     ? signs.openSingle
                                               : signs.closeSingle};
    }
    // A language with a blank inside of the marks: the user may have typed a wide one before the closing
    // mark.
    if (neighbour == u' ' && signs.close.starts_with(narrowBlank) && isOpen(before, signs))
        return {2, signs.close};
    return {1, opens ? signs.open : signs.close};
}

Signs TypedSigns::signs() const {
    return Signs::of(words_(u"“ ” ‘ ’ —"_en));
}

void TypedSigns::typed(base::TextView inserted) {
    if (inserted.size() != 1 || (!options_.quotes && !options_.dashes) || form_.RTB.SelLength() > 0)
        return;
    const char16_t sign = inserted.front();
    const bool isQuotation = options_.quotes && (sign == u'"' || sign == u'\'');
    if (!isQuotation && !(options_.dashes && sign == u'-'))
        return;
    const std::int32_t caret = form_.RTB.SelStart();
    const std::int32_t begin = std::max(0, caret - paragraphWindow);
    base::Text before = text_.letters(begin, caret - begin);
    if (before.empty() || before.back() != sign)
        return; // another rule has moved the caret
    before.pop_back();
    if (const auto end = before.rfind(u'\n'); end != base::Text::npos)
        before.erase(0, end + 1);
    if (isQuotation)
        replace(quotationFor(sign, before, signs()));
    else if (before.ends_with(u'-') && !before.ends_with(u"--"))
        replace({2, signs().dash});
}

void TypedSigns::replace(const TypedSign& sign) {
    editor::replaceWord(form_.RTB, text_, form_.RTB.SelStart() - sign.removed, sign.removed, sign.inserted);
}

} // namespace aids
