// Letters that are offered behind the caret: they are painted in the view and are no part of the document.
#include "desktop/qt/conversions.h"
#include "desktop/text/rich_text_edit.h"

#include <QPainter>
#include <QTextBlock>
#include <QTextLayout>

namespace desktop {

QFont RichTextEdit::fontAtCaret() const {
    QFont font = textCursor().charFormat().font();
    font.setPointSizeF(font.pointSizeF() * zoom_ / 100);
    return font;
}

QRectF RichTextEdit::offerPlace() const {
    const QTextCursor cursor = textCursor();
    const QTextBlock block = cursor.block();
    const QTextLine line = block.layout()->lineForTextPosition(cursor.positionInBlock());
    if (!line.isValid() || block.textDirection() == Qt::RightToLeft)
        return {};
    const QRect caret = cursorRect();
    const QFontMetricsF metrics(fontAtCaret());
    const double base = caret.top() + line.ascent(); // the caret is as high as its line
    return {caret.right() + 1.0, base - metrics.ascent(), metrics.horizontalAdvance(offered_) + 1,
            metrics.height()};
}

bool RichTextEdit::offer(base::TextView letters) {
    if (!offered_.isEmpty())
        viewport()->update(offerPlace().toAlignedRect());
    offered_ = qstring(letters);
    if (offered_.isEmpty())
        return true;
    offeredAt_ = textCursor().position();
    offeredTo_ = document_->revision();
    const QRectF place = offerPlace();
    if (place.isEmpty() || place.right() > viewport()->width()) {
        offered_.clear();
        return false;
    }
    viewport()->update(place.toAlignedRect());
    return true;
}

void RichTextEdit::paintOffer() {
    if (offered_.isEmpty())
        return;
    const QTextCursor cursor = textCursor();
    if (cursor.hasSelection() || cursor.position() != offeredAt_ || document_->revision() != offeredTo_) {
        offered_.clear();
        return;
    }
    if (!cursor.block().layout()->preeditAreaText().isEmpty())
        return;
    QPainter painter(viewport());
    painter.setFont(fontAtCaret());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(offerPlace(), Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine | Qt::TextDontClip,
                     offered_);
}

} // namespace desktop
