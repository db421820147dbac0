#include "aids/letters.h"

#include <algorithm>
#include <clocale>
#include <cwctype>
#include <locale.h>

namespace aids {

namespace {

// The C library's own tables of Unicode; without them, only ASCII has letters.
locale_t unicode() {
    static const locale_t tables = [] {
        const locale_t utf8 = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
        return utf8 ? utf8 : newlocale(LC_CTYPE_MASK, "C", nullptr);
    }();
    return tables;
}

char16_t inBasicPlane(wint_t letter, char16_t otherwise) {
    return letter <= 0xFFFF ? static_cast<char16_t>(letter) : otherwise;
}

} // namespace

bool isLetter(char16_t unit) {
    if (unit < 0x80)
        return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
    return iswalpha_l(unit, unicode()) != 0;
}

bool isUpper(char16_t unit) {
    return iswupper_l(unit, unicode()) != 0;
}

char16_t lower(char16_t unit) {
    return inBasicPlane(towlower_l(unit, unicode()), unit);
}

char16_t upper(char16_t unit) {
    return inBasicPlane(towupper_l(unit, unicode()), unit);
}

base::Text lower(base::TextView text) {
    base::Text result(text);
    std::ranges::transform(result, result.begin(), [](char16_t unit) { return lower(unit); });
    return result;
}

base::Text upper(base::TextView text) {
    base::Text result(text);
    std::ranges::transform(result, result.begin(), [](char16_t unit) { return upper(unit); });
    return result;
}

base::Text capitalised(base::TextView text) {
    base::Text result(text);
    const auto first = std::ranges::find_if(result, [](char16_t unit) { return isLetter(unit); });
    if (first != result.end())
        *first = upper(*first);
    return result;
}

} // namespace aids
