#include "desktop/text/selection_formats.h"

#include "desktop/qt/conversions.h"
#include "desktop/text/editor_document.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>
#include <algorithm>

namespace desktop {

namespace {

using platform::Setting;

bool hasStyle(const QTextCharFormat& format, LetterStyle style) {
    switch (style) {
    case LetterStyle::Bold:
        return format.fontWeight() >= QFont::DemiBold;
    case LetterStyle::Italic:
        return format.fontItalic();
    case LetterStyle::Underline:
        return format.fontUnderline();
    case LetterStyle::StrikeThru:
        break;
    }
    return format.fontStrikeOut();
}

// The value that all characters of the selection share, empty if they differ; stops at the second value. For
// an empty selection, the value at the caret.
template <typename Value>
std::optional<Value> shared(const QTextCursor& selection, auto valueOf) {
    if (!selection.hasSelection())
        return valueOf(selection.charFormat());
    std::optional<Value> found;
    const int end = selection.selectionEnd();
    for (QTextBlock block = selection.document()->findBlock(selection.selectionStart());
         block.isValid() && block.position() < end; block = block.next()) {
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            const QTextFragment letters = piece.fragment();
            if (letters.position() >= end)
                break;
            if (letters.position() + letters.length() <= selection.selectionStart())
                continue;
            const Value value = valueOf(letters.charFormat());
            if (found && *found != value)
                return std::nullopt;
            found = value;
        }
    }
    if (found)
        return found;
    QTextCursor place = selection;
    place.setPosition(selection.selectionStart());
    return valueOf(place.charFormat());
}

Setting setting(std::optional<bool> value) {
    return !value ? Setting::Mixed : *value ? Setting::On : Setting::Off;
}

// Calls `call` for each paragraph of the selection until it returns false.
void forEachParagraph(const QTextCursor& selection, auto call) {
    QTextBlock block = selection.document()->findBlock(selection.selectionStart());
    const int end = std::max(selection.selectionEnd(), selection.selectionStart() + 1);
    for (; block.isValid() && block.position() < end; block = block.next())
        if (!call(block))
            return;
}

// The value that all paragraphs of the selection share, empty if they differ; stops at the second value.
template <typename Value>
std::optional<Value> sharedByParagraphs(const QTextCursor& selection, auto valueOf) {
    std::optional<Value> found;
    bool mixed = false;
    forEachParagraph(selection, [&](const QTextBlock& block) {
        const Value value = valueOf(block);
        mixed = found && *found != value;
        found = value;
        return !mixed;
    });
    return mixed ? std::nullopt : found;
}

} // namespace

Setting letterStyle(const QTextCursor& selection, LetterStyle style) {
    return setting(
        shared<bool>(selection, [&](const QTextCharFormat& format) { return hasStyle(format, style); }));
}

bool isBoldAt(const QTextDocument& document, int position) {
    const QTextBlock block = document.findBlock(position);
    for (auto piece = block.begin(); !piece.atEnd(); ++piece)
        if (piece.fragment().contains(position))
            return hasStyle(piece.fragment().charFormat(), LetterStyle::Bold);
    return false;
}

QTextCharFormat withLetterStyle(LetterStyle style, bool on) {
    QTextCharFormat format;
    switch (style) {
    case LetterStyle::Bold:
        format.setFontWeight(on ? QFont::Bold : QFont::Normal);
        break;
    case LetterStyle::Italic:
        format.setFontItalic(on);
        break;
    case LetterStyle::Underline:
        format.setFontUnderline(on);
        break;
    case LetterStyle::StrikeThru:
        format.setFontStrikeOut(on);
        break;
    }
    return format;
}

std::optional<double> letterSize(const QTextCursor& selection) {
    const double usual = selection.document()->defaultFont().pointSizeF();
    return shared<double>(selection, [&](const QTextCharFormat& format) {
        return format.fontPointSize() > 0 ? format.fontPointSize() : usual;
    });
}

Setting bullets(const QTextCursor& selection) {
    return setting(sharedByParagraphs<bool>(
        selection, [](const QTextBlock& block) { return block.textList() != nullptr; }));
}

void setBullets(const QTextCursor& selection, bool on) {
    QTextCursor whole = selection;
    whole.beginEditBlock();
    BulletLists lists;
    forEachParagraph(selection, [&](const QTextBlock& block) {
        if ((block.textList() != nullptr) == on)
            return true;
        QTextCursor paragraph(block);
        QTextBlockFormat format = block.blockFormat();
        if (on) {
            giveBullet(format, lists.forParagraph(paragraph));
            if (format.leftMargin() == 0) {
                format.setLeftMargin(pixelsOfTwips(bulletIndent));
                format.setProperty(FirstIndent, -bulletIndent);
            }
        } else {
            takeBullet(format);
        }
        paragraph.setBlockFormat(format);
        return true;
    });
    whole.endEditBlock();
}

std::optional<platform::ParagraphAlignment> alignment(const QTextCursor& selection) {
    using platform::ParagraphAlignment;
    return sharedByParagraphs<ParagraphAlignment>(selection, [](const QTextBlock& block) {
        const Qt::Alignment side = block.blockFormat().alignment();
        return side & Qt::AlignRight     ? ParagraphAlignment::Right
               : side & Qt::AlignHCenter ? ParagraphAlignment::Centre
                                         : ParagraphAlignment::Left;
    });
}

void setAlignment(QTextCursor selection, Qt::Alignment alignment) {
    QTextBlockFormat format;
    format.setAlignment(alignment);
    selection.mergeBlockFormat(format);
}

} // namespace desktop
