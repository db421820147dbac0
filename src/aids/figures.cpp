#include "aids/figures.h"

#include "base/numbers.h"
#include "drafts/letters.h"
#include "moments/word_units.h"

#include <algorithm>
#include <cmath>

namespace aids {

namespace {

constexpr double leastSeconds = 10;

bool isNoCharacter(char16_t unit) {
    return unit == u'\r' || unit == u'\n' || unit == u'\v' || unit == u'\uFFFC';
}

} // namespace

TextFigures figuresOf(base::TextView text) {
    TextFigures figures;
    bool inWord = false;
    for (const char16_t unit : text) {
        const bool second = unit >= 0xDC00 && unit <= 0xDFFF; // of a pair that is one character
        const bool blank = moments::isBlank(unit) || isNoCharacter(unit);
        const bool alone = moments::standsAlone(unit);
        if (!blank && !inWord && drafts::isLetter(unit)) {
            ++figures.words;
            inWord = !alone;
        }
        inWord = inWord && !blank && !alone;
        if (second || isNoCharacter(unit))
            continue;
        ++figures.characters;
        figures.withoutBlanks += blank ? 0 : 1;
    }
    return figures;
}

base::Text linesText(std::size_t characters, std::size_t length, base::TextView decimalSign) {
    const std::size_t tenths = (characters * 10 + length / 2) / length;
    return base::countText(tenths / 10) + base::Text(decimalSign) + base::countText(tenths % 10);
}

base::Text speedText(double words, double seconds) {
    return seconds < leastSeconds || words < 1 ? base::Text(u"-")
                                               : base::numberText(std::round(words * 60 / seconds));
}

} // namespace aids
