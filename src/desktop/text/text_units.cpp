#include "desktop/text/text_units.h"

#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>

namespace desktop {

namespace {

constexpr char16_t replacementUnit = u'\uFFFD';

// The same as documentPosition for a position inside of this paragraph.
int positionIn(const QTextDocument& document, const QTextBlock& block, std::int64_t position) {
    const std::int64_t offset = position - block.position() - block.blockNumber();
    const int place = block.position() + static_cast<int>(std::min<std::int64_t>(offset, block.length() - 1));
    const bool splitsPair = place > 0 && document.characterAt(place).isLowSurrogate() &&
                            document.characterAt(place - 1).isHighSurrogate();
    return splitsPair ? place - 1 : place;
}

// The paragraph that contains a position of the program.
QTextBlock blockAt(const QTextDocument& document, std::int64_t position) {
    int first = 0;
    int last = document.blockCount() - 1;
    while (first < last) {
        const int middle = last - (last - first) / 2;
        if (document.findBlockByNumber(middle).position() + static_cast<std::int64_t>(middle) <= position)
            first = middle;
        else
            last = middle - 1;
    }
    return document.findBlockByNumber(first);
}

} // namespace

QString documentText(base::TextView text) {
    QString result(static_cast<qsizetype>(text.size()), Qt::Uninitialized);
    auto* const begin = reinterpret_cast<char16_t*>(result.data());
    char16_t* to = begin;
    for (std::size_t i = 0; i < text.size(); ++i) {
        switch (const char16_t unit = text[i]) {
        case u'\r':
            if (i + 1 < text.size() && text[i + 1] == u'\n')
                ++i;
            [[fallthrough]];
        case u'\n':
            *to++ = documentParagraphEnd;
            break;
        case programLineBreak:
            *to++ = documentLineBreak;
            break;
        case u'\0': // NUL ends a text for other programs and is no text itself
            break;
        case u'\uFDD0': // reserved by Qt: would end a paragraph
        case u'\uFDD1':
            *to++ = replacementUnit;
            break;
        default:
            *to++ = unit;
        }
    }
    result.truncate(to - begin);
    return result;
}

base::Text programText(QStringView text, int paragraphEnds) {
    base::Text result(static_cast<std::size_t>(text.size() + paragraphEnds), u'\0');
    char16_t* to = result.data();
    for (const QChar unit : text) {
        if (unit == documentParagraphEnd) {
            *to++ = u'\r';
            *to++ = u'\n';
        } else {
            *to++ = unit == documentLineBreak ? programLineBreak : unit.unicode();
        }
    }
    return result;
}

std::int32_t programLength(const QTextDocument& document) {
    // The document also counts an end after its last paragraph.
    return document.characterCount() - 1 + document.blockCount() - 1;
}

std::int32_t programPosition(const QTextDocument& document, int position) {
    const int inside = std::clamp(position, 0, document.characterCount() - 1);
    return inside + document.findBlock(inside).blockNumber();
}

int documentPosition(const QTextDocument& document, std::int64_t position) {
    const std::int64_t inside = std::clamp<std::int64_t>(position, 0, programLength(document));
    return positionIn(document, blockAt(document, inside), inside);
}

// In the paragraph of the last position or the next one.
int NearPositions::documentPosition(std::int32_t position) {
    for (int tries = 0; tries < 2 && block_.isValid(); ++tries, block_ = block_.next()) {
        const std::int64_t begin = std::int64_t{block_.position()} + block_.blockNumber();
        if (position >= begin && position <= begin + block_.length())
            return positionIn(document_, block_, position);
    }
    const int place = desktop::documentPosition(document_, position);
    block_ = document_.findBlock(place);
    return place;
}

} // namespace desktop
