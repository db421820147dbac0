#include "aids/unclosed.h"

#include "moments/word_units.h"

#include <algorithm>

namespace aids {

namespace {

constexpr base::TextView opening = u"([{";
constexpr base::TextView closing = u")]}";
constexpr base::TextView quotes = u"\"«»“”„";
constexpr std::size_t longestNumber = 3; // units of "12)" at the beginning of an item
constexpr std::size_t deepest = 50;      // signs that may be open inside of one that is closed

struct Open {
    char16_t sign;
    std::size_t position;
};

bool closesQuote(char16_t open, char16_t sign) {
    switch (open) {
    case u'"':
        return sign == u'"';
    case u'«':
        return sign == u'»';
    case u'»':
        return sign == u'«' || sign == u'»';
    case u'„':
        return sign == u'“' || sign == u'”';
    default:
        return sign == u'”';
    }
}

// "a)" or "12)" at the beginning, or the mouth of a face.
bool standsAlone(base::TextView paragraph, std::size_t at) {
    const base::TextView before = paragraph.substr(0, at);
    const bool number =
        at > 0 && at <= longestNumber && std::none_of(before.begin(), before.end(), [](char16_t unit) {
            return moments::isBlank(unit) || quotes.find(unit) != base::TextView::npos;
        });
    return number || before.ends_with(u':') || before.ends_with(u":-") || before.ends_with(u";-") ||
           before.ends_with(u';');
}

} // namespace

std::vector<std::size_t> unclosed(base::TextView paragraph, base::TextView next) {
    std::vector<std::size_t> found;
    std::vector<Open> open;
    for (std::size_t at = 0; at < paragraph.size(); ++at) {
        const char16_t sign = paragraph[at];
        const std::size_t pair = closing.find(sign);
        if (opening.find(sign) != base::TextView::npos) {
            open.push_back({sign, at});
        } else if (pair != base::TextView::npos || quotes.find(sign) != base::TextView::npos) {
            const auto last = open.rbegin() + static_cast<std::ptrdiff_t>(std::min(open.size(), deepest));
            auto hit = std::find_if(open.rbegin(), last, [&](const Open& each) {
                return pair != base::TextView::npos ? each.sign == opening[pair]
                                                    : closesQuote(each.sign, sign);
            });
            if (hit == last)
                hit = open.rend();
            // What was opened inside of what is closed is left open; a quote does not close brackets around
            // it.
            if (hit != open.rend())
                open.erase(std::next(hit).base());
            else if (pair == base::TextView::npos)
                open.push_back({sign, at});
            else if (!standsAlone(paragraph, at))
                found.push_back(at);
        }
    }
    for (const Open& each : open)
        if (quotes.find(each.sign) == base::TextView::npos || !next.starts_with(each.sign))
            found.push_back(each.position);
    std::sort(found.begin(), found.end());
    return found;
}

} // namespace aids
