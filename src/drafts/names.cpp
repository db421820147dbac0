#include "drafts/names.h"

#include "drafts/letters.h"

#include <algorithm>
#include <array>

namespace drafts {

namespace {

constexpr std::size_t longestName = 40;
constexpr std::size_t longestBoldName = 60;
constexpr std::size_t mostWords = 4;

bool isSmall(char16_t unit) {
    const bool extended = unit >= 0x0100 && unit <= 0x017F && unit % 2 == 1;
    return (unit >= u'a' && unit <= u'z') || (unit >= 0xDF && unit <= 0xFF) || extended ||
           (unit >= 0x03AC && unit <= 0x03CE) || (unit >= 0x0430 && unit <= 0x045F);
}

// A part of a name that begins with a small letter.
bool isParticle(TextView word) {
    static constexpr std::array<TextView, 14> particles = {
        u"de", u"der", u"van", u"von", u"la", u"le", u"di", u"da", u"du", u"of", u"and", u"und", u"y", u"e"};
    return std::find(particles.begin(), particles.end(), word) != particles.end();
}

bool isWordOfName(TextView word, bool last) {
    if (word.find_first_of(u"?!,;:\"<>{}|=/") != TextView::npos || (last && word.back() == u'.'))
        return false;
    const auto letter = std::find_if(word.begin(), word.end(), isLetter);
    return letter != word.end() && (!isSmall(*letter) || isParticle(word));
}

} // namespace

bool isName(TextView text) {
    if (text.empty() || text.size() > longestName || isBlank(text.front()) || isBlank(text.back()))
        return false;
    std::size_t words = 0;
    while (!text.empty()) {
        const auto end = std::min(text.find(u' '), text.size());
        const TextView word = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (word.empty() || ++words > mostWords || !isWordOfName(word, text.empty()))
            return false;
        if (words == 1 && isSmall(word.front()))
            return false;
    }
    return true;
}

NamedText nameAtHead(TextView text) {
    const auto colon = text.substr(0, longestName + 2).find_first_of(u":\uFF1A");
    if (colon == TextView::npos || colon + 1 >= text.size())
        return {};
    const bool wide = text[colon] == u'\uFF1A';
    if (!wide && !isBlank(text[colon + 1]))
        return {};
    std::size_t behind = colon + 1;
    while (behind < text.size() && isBlank(text[behind]))
        ++behind;
    const TextView name = stripped(text.substr(0, colon));
    return behind < text.size() && isName(name) ? NamedText{name, behind} : NamedText{};
}

NamedText nameAtHead(TextView text, std::size_t bold) {
    const TextView name = stripped(text.substr(0, std::min(bold, text.size())));
    if (name.size() < 2 || name.size() > longestBoldName || name.back() != u':' || name.size() >= text.size())
        return nameAtHead(text);
    std::size_t behind = static_cast<std::size_t>(name.data() - text.data()) + name.size();
    while (behind < text.size() && isBlank(text[behind]))
        ++behind;
    return {name.substr(0, name.size() - 1), behind};
}

} // namespace drafts
