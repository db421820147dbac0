#include "desktop/editor/text_search.h"

#include "desktop/editor/text_units.h"

#include <QStringList>
#include <QTextBlock>
#include <QTextBoundaryFinder>
#include <QTextDocument>
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

    void fold(QString& text) const {
        bool pairs = false;
        for (QChar& unit : text) {
            pairs = pairs || unit.isHighSurrogate();
            unit = QChar(units_[unit.unicode()]);
        }
        if (pairs)
            foldPairs(text);
    }

private:
    static void foldPairs(QString& text) {
        for (qsizetype i = 0; i + 1 < text.size(); ++i) {
            if (!text.at(i).isHighSurrogate() || !text.at(i + 1).isLowSurrogate())
                continue;
            const char32_t folded = QChar::toCaseFolded(QChar::surrogateToUcs4(text.at(i), text.at(i + 1)));
            text[i] = QChar(QChar::highSurrogate(folded));
            text[++i] = QChar(QChar::lowSurrogate(folded));
        }
    }

    std::array<char16_t, 0x10000> units_{};
};

// One search through a document.
class Search {
public:
    Search(base::TextView wanted, SearchOptions options)
        : options_(options), parts_(documentText(wanted).split(QChar(documentParagraphEnd))) {
        for (QString& part : parts_)
            part = comparable(part);
    }

    std::optional<TextRange> from(const QTextDocument& document, int position) const {
        QTextBlock block = document.findBlock(position);
        int offset = position - block.position();
        for (; block.isValid(); block = block.next(), offset = 0)
            if (const auto hit = parts_.size() == 1 ? within(block, offset) : across(block, offset))
                return hit;
        return std::nullopt;
    }

private:
    QString comparable(QString text) const {
        static const FoldedUnits folded;
        if (!options_.matchCase)
            folded.fold(text);
        return text;
    }

    std::optional<TextRange> within(const QTextBlock& block, qsizetype offset) const {
        const QString original = block.text();
        const QString text = comparable(original);
        const QString& wanted = parts_.front();
        std::optional<QTextBoundaryFinder> words;
        for (;; ++offset) {
            offset = text.indexOf(wanted, offset);
            if (offset < 0)
                return std::nullopt;
            if (options_.wholeWords && !words)
                words.emplace(QTextBoundaryFinder::Word, original);
            if (!words || (isBoundary(*words, offset) && isBoundary(*words, offset + wanted.size()))) {
                const int begin = block.position() + static_cast<int>(offset);
                return TextRange{begin, begin + static_cast<int>(wanted.size())};
            }
        }
    }

    // The first part has to end its paragraph, the last one to begin its own.
    std::optional<TextRange> across(const QTextBlock& first, qsizetype offset) const {
        const qsizetype begin = first.length() - 1 - parts_.front().size();
        if (begin < offset || !comparable(first.text()).endsWith(parts_.front()) ||
            !isWordBoundary(first, begin))
            return std::nullopt;
        QTextBlock block = first.next();
        for (qsizetype i = 1; i + 1 < parts_.size(); ++i, block = block.next())
            if (!block.isValid() || comparable(block.text()) != parts_.at(i))
                return std::nullopt;
        const QString& last = parts_.back();
        if (!block.isValid() || !comparable(block.text()).startsWith(last) ||
            !isWordBoundary(block, last.size()))
            return std::nullopt;
        return TextRange{first.position() + static_cast<int>(begin),
                         block.position() + static_cast<int>(last.size())};
    }

    bool isWordBoundary(const QTextBlock& block, qsizetype offset) const {
        if (!options_.wholeWords)
            return true;
        QTextBoundaryFinder words(QTextBoundaryFinder::Word, block.text());
        return isBoundary(words, offset);
    }

    // The ends of a paragraph are boundaries, in an empty one too.
    static bool isBoundary(QTextBoundaryFinder& words, qsizetype offset) {
        if (offset == 0 || offset == words.string().size())
            return true;
        words.setPosition(offset);
        return words.isAtBoundary();
    }

    SearchOptions options_;
    QStringList parts_;
};

} // namespace

std::optional<TextRange> findText(const QTextDocument& document, base::TextView wanted, int from,
                                  SearchOptions options) {
    if (wanted.empty())
        return std::nullopt;
    return Search(wanted, options).from(document, from);
}

} // namespace desktop
