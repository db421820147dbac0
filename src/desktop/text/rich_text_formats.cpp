// The formats of the selection.
#include "base/failure.h"
#include "desktop/qt/conversions.h"
#include "desktop/text/rich_text_edit.h"
#include "desktop/text/selection_formats.h"

#include <cmath>

namespace desktop {

namespace {

constexpr double smallestSize = 1;   // points
constexpr double largestSize = 1638; // points

} // namespace

// While edits run together, Qt's text cursor is moved only at their end; until then the program's own cursor
// (ahead_) holds the selection.
void RichTextEdit::mergeLetters(const QTextCharFormat& format) {
    if (!ahead_)
        return mergeCurrentCharFormat(format);
    ahead_->mergeCharFormat(format);
    if (ahead_->hasSelection())
        Formatted();
}

void RichTextEdit::setSelFontName(base::TextView name) {
    QTextCharFormat format;
    nameFont(format, qstring(name));
    format.setProperty(Charset, 0);
    mergeLetters(format);
}

std::optional<double> RichTextEdit::SelFontSize() const {
    return letterSize(textCursor());
}

void RichTextEdit::setSelFontSize(double points) {
    if (!(points >= smallestSize && points <= largestSize))
        throw base::Failure("a font has from 1 to 1638 points");
    QTextCharFormat format;
    format.setFontPointSize(std::round(points * 2) / 2);
    mergeLetters(format);
}

void RichTextEdit::setSelColor(std::uint32_t color) {
    QTextCharFormat format;
    format.setForeground(QColor(color));
    mergeLetters(format);
}

platform::Setting RichTextEdit::SelBold() const {
    return letterStyle(textCursor(), LetterStyle::Bold);
}

void RichTextEdit::setSelBold(bool on) {
    mergeLetters(withLetterStyle(LetterStyle::Bold, on));
}

bool RichTextEdit::isBold(std::int32_t position) const {
    return isBoldAt(*document_, documentPosition(*document_, position));
}

platform::Setting RichTextEdit::SelItalic() const {
    return letterStyle(textCursor(), LetterStyle::Italic);
}

void RichTextEdit::setSelItalic(bool on) {
    mergeLetters(withLetterStyle(LetterStyle::Italic, on));
}

platform::Setting RichTextEdit::SelUnderline() const {
    return letterStyle(textCursor(), LetterStyle::Underline);
}

void RichTextEdit::setSelUnderline(bool on) {
    mergeLetters(withLetterStyle(LetterStyle::Underline, on));
}

platform::Setting RichTextEdit::SelStrikeThru() const {
    return letterStyle(textCursor(), LetterStyle::StrikeThru);
}

void RichTextEdit::setSelStrikeThru(bool on) {
    mergeLetters(withLetterStyle(LetterStyle::StrikeThru, on));
}

platform::Setting RichTextEdit::SelBullet() const {
    return bullets(textCursor());
}

void RichTextEdit::setSelBullet(bool on) {
    setBullets(textCursor(), on);
}

std::optional<platform::ParagraphAlignment> RichTextEdit::SelAlignment() const {
    return desktop::alignment(textCursor());
}

void RichTextEdit::setSelAlignment(platform::ParagraphAlignment alignment) {
    using platform::ParagraphAlignment;
    desktop::setAlignment(textCursor(), alignment == ParagraphAlignment::Right    ? Qt::AlignRight
                                        : alignment == ParagraphAlignment::Centre ? Qt::AlignHCenter
                                                                                  : Qt::AlignLeft);
}

} // namespace desktop
