#include "desktop/editor/text_search.h"

#include <QTextBlock>
#include <QTextBoundaryFinder>
#include <QTextDocument>
#include <algorithm>
#include <array>

namespace desktop {

namespace {

// What units stand for when the case of letters does not count.
class FoldedUnits {
public:
    FoldedUnits() {
        for (std::size_t unit = 0; unit < units_.size(); ++unit)
            units_[unit] = static_cast<char16_t>(QChar::toCaseFolded(static_cast<char32_t>(unit)));
    }

    void fold(QChar* begin, QChar* end) const {
        bool pairs = false;
        for (QChar* unit = begin; unit < end; ++unit) {
            pairs = pairs || unit->isHighSurrogate();
            *unit = QChar(units_[unit->unicode()]);
        }
        if (pairs)
            foldPairs(begin, end);
    }

private:
    static void foldPairs(QChar* unit, QChar* end) {
        for (; unit + 1 < end; ++unit) {
            if (!unit[0].isHighSurrogate() || !unit[1].isLowSurrogate())
                continue;
            const char32_t folded = QChar::toCaseFolded(QChar::surrogateToUcs4(unit[0], unit[1]));
            *unit = QChar(QChar::highSurrogate(folded));
            *++unit = QChar(QChar::lowSurrogate(folded));
        }
    }

    std::array<char16_t, 0x10000> units_{};
};

// Tells where words begin and end, for places that come in order.
class WordBoundaries {
public:
    explicit WordBoundaries(const QTextDocument& document) : document_(document) {}

    // The ends of a paragraph are boundaries, in an empty one too.
    bool contain(int position) {
        if (!block_.isValid() || position < block_.position() ||
            position >= block_.position() + block_.length()) {
            block_ = document_.findBlock(position);
            finder_ = QTextBoundaryFinder(QTextBoundaryFinder::Word, block_.text());
        }
        const int offset = position - block_.position();
        finder_.setPosition(offset);
        return offset == 0 || offset == block_.length() - 1 || finder_.isAtBoundary();
    }

private:
    const QTextDocument& document_;
    QTextBlock block_;
    QTextBoundaryFinder finder_;
};

void fold(QString& text, qsizetype begin, qsizetype end) {
    static const FoldedUnits units;
    units.fold(text.data() + begin, text.data() + end);
}

} // namespace

std::optional<TextRange> findText(const QTextDocument& document, base::TextView wanted, int from,
                                  SearchOptions options) {
    QString sought = documentText(wanted);
    if (sought.isEmpty())
        return std::nullopt;
    if (!options.matchCase)
        fold(sought, 0, sought.size());
    // One copy of a long text takes Qt a tenth of the time of its paragraphs one by one. Folded is only what
    // lies in front of the hit.
    constexpr qsizetype pieceLength = 32'768;
    QString text = document.toRawText();
    WordBoundaries words(document);
    for (qsizetype begin = from, end = from; end < text.size(); begin = end - sought.size() + 1) {
        end = std::min(text.size(), begin + sought.size() + pieceLength);
        if (!options.matchCase)
            fold(text, begin, end);
        const QStringView piece = QStringView(text).mid(begin, end - begin);
        for (qsizetype at = piece.indexOf(sought); at >= 0; at = piece.indexOf(sought, at + 1)) {
            const TextRange hit{static_cast<int>(begin + at), static_cast<int>(begin + at + sought.size())};
            if (!options.wholeWords || (words.contain(hit.begin) && words.contain(hit.end)))
                return hit;
        }
    }
    return std::nullopt;
}

} // namespace desktop
