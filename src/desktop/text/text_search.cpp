#include "desktop/text/text_search.h"

#include <QTextBlock>
#include <QTextBoundaryFinder>
#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>
#include <array>

namespace desktop {

namespace {

// Maps UTF-16 units to their case-folded form.
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

// The word class of a unit, as far as the unit alone decides it.
enum class WordPart { Letter, Blank, Unknown };

WordPart wordPart(QChar unit) {
    const char16_t code = unit.unicode();
    const bool letter = (code >= u'a' && code <= u'z') || (code >= u'A' && code <= u'Z') ||
                        (code >= u'0' && code <= u'9') || code == u'_';
    return letter ? WordPart::Letter : code == u' ' ? WordPart::Blank : WordPart::Unknown;
}

// Finds word boundaries; fastest for positions in ascending order.
class WordBoundaries {
public:
    explicit WordBoundaries(const QTextDocument& document) : document_(document) {}

    // True if `position`, which lies between the units `before` and `behind`, is a word boundary. Both ends
    // of a paragraph are boundaries, even of an empty one.
    bool contain(int position, QChar before, QChar behind) {
        // The full Unicode rule reads the whole paragraph, which is noticeably slow when every other word
        // contains a hit.
        const WordPart left = wordPart(before);
        const WordPart right = wordPart(behind);
        if (left == WordPart::Letter && right != WordPart::Unknown)
            return right == WordPart::Blank;
        if (left == WordPart::Blank && right == WordPart::Letter)
            return true;
        return isBoundary(position);
    }

private:
    bool isBoundary(int position) {
        if (!block_.isValid() || position < block_.position() ||
            position >= block_.position() + block_.length()) {
            block_ = document_.findBlock(position);
            finder_ = QTextBoundaryFinder(QTextBoundaryFinder::Word, block_.text());
        }
        const int offset = position - block_.position();
        finder_.setPosition(offset);
        return offset == 0 || offset == block_.length() - 1 || finder_.isAtBoundary();
    }

    const QTextDocument& document_;
    QTextBlock block_;
    QTextBoundaryFinder finder_;
};

void fold(QString& text, qsizetype begin, qsizetype end) {
    static const FoldedUnits units;
    units.fold(text.data() + begin, text.data() + end);
}

// A range of the document, cut off at the document's end, in a time that does not depend on the rest of the
// document.
QString stretch(const QTextDocument& document, int begin, int length) {
    const int last = document.characterCount() - 1;
    QTextCursor cursor(document.findBlock(begin));
    cursor.setPosition(begin);
    cursor.setPosition(std::min(last, begin + std::min(length, last)), QTextCursor::KeepAnchor);
    return cursor.selectedText();
}

// Searches for one text in copied ranges of a document.
class Search {
public:
    Search(const QTextDocument& document, QString sought, SearchOptions options)
        : sought_(std::move(sought)), options_(options), words_(document) {
        if (!options_.matchCase)
            fold(sought_, 0, sought_.size());
    }

    qsizetype length() const { return sought_.size(); }

    // The first hit in `text` at or after unit `from`; `origin` is the document position where `text` begins.
    // Folds the case of `text` piece by piece, only up to the hit.
    std::optional<TextRange> run(QString& text, qsizetype from, qsizetype origin) {
        constexpr qsizetype pieceLength = 32'768;
        for (qsizetype begin = from, end = from; end < text.size(); begin = end - length() + 1) {
            end = std::min(text.size(), begin + length() + pieceLength);
            if (!options_.matchCase)
                fold(text, begin, end);
            const QStringView piece = QStringView(text).mid(begin, end - begin);
            for (qsizetype at = piece.indexOf(sought_); at >= 0; at = piece.indexOf(sought_, at + 1)) {
                const auto hit = static_cast<int>(origin + begin + at);
                const TextRange range{hit, hit + static_cast<int>(length())};
                if (!options_.wholeWords || isWhole(range, text, origin))
                    return range;
            }
        }
        return std::nullopt;
    }

private:
    bool isWhole(TextRange range, const QString& text, qsizetype origin) {
        const auto unit = [&](qsizetype at) { return at >= 0 && at < text.size() ? text[at] : QChar(); };
        const auto isBoundary = [&](int place) {
            const qsizetype at = place - origin;
            return words_.contain(place, unit(at - 1), unit(at));
        };
        return isBoundary(range.begin) && isBoundary(range.end);
    }

    QString sought_;
    SearchOptions options_;
    WordBoundaries words_;
};

} // namespace

std::optional<TextRange> findText(const QTextDocument& document, base::TextView wanted, int from,
                                  SearchOptions options) {
    Search search(document, documentText(wanted), options);
    if (search.length() == 0)
        return std::nullopt;
    // When replacing repeatedly, the next hit is usually near. For long distances, one copy of the whole text
    // is fastest: reading Qt's paragraphs one by one takes ten times as long.
    constexpr int nearby = 2048;
    if (search.length() < nearby) {
        QString text = stretch(document, from, nearby);
        if (const auto hit = search.run(text, 0, from))
            return hit;
    }
    QString text = document.toRawText();
    return search.run(text, from, 0);
}

} // namespace desktop
