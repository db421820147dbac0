// How the text control shows a text while some heights are still estimated.
#include "desktop/text/rich_text_edit.h"

#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTimerEvent>

namespace desktop {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds slice{6};
constexpr int rest = 10;          // ms between two slices
constexpr int afterAChange = 200; // ms, longer than between two key presses

} // namespace

void RichTextEdit::keepView(const std::function<void()>& measure) {
    QScrollBar& bar = *verticalScrollBar();
    const int shown = layout_->paragraphBetween(bar.value(), bar.value() + viewport()->height());
    const int before = layout_->top(shown);
    const int offset = before - bar.value();
    keepsView_ = true;
    measure();
    bar.setValue(layout_->top(shown) - offset);
    keepsView_ = false;
    if (layout_->top(shown) != before || bar.value() != before - offset)
        viewport()->update();
}

// Typing must not wait for a slice of measuring.
void RichTextEdit::putMeasuringOff() {
    if (measuring_.isActive())
        measuring_.start(afterAChange, this);
}

void RichTextEdit::scrollContentsBy(int dx, int dy) {
    QTextEdit::scrollContentsBy(dx, dy);
    if (keepsView_ || !layout_->isEstimated())
        return;
    keepView([&] {
        const int top = verticalScrollBar()->value();
        layout_->measureBetween(top, top + viewport()->height());
    });
}

void RichTextEdit::paintEvent(QPaintEvent* event) {
    QTextEdit::paintEvent(event);
    paintPageBreaks(event->rect());
    if (layout_->isEstimated() && !measuring_.isActive())
        measuring_.start(rest, this);
}

// Draws a page break as a dashed line above the paragraph that begins the page.
void RichTextEdit::paintPageBreaks(const QRect& area) {
    QPainter painter(viewport());
    painter.setPen(QPen(QColor(0x9A, 0xA3, 0xB0), 1, Qt::DashLine));
    const int scrolled = verticalScrollBar()->value();
    for (QTextBlock block = cursorForPosition({0, area.top()}).block(); block.isValid();
         block = block.next()) {
        const int top = static_cast<int>(layout_->blockBoundingRect(block).top()) - scrolled;
        if (top > area.bottom())
            break;
        if (document_->pageBreakBefore(block) != PageBreak::None)
            painter.drawLine(0, top, viewport()->width(), top);
    }
}

void RichTextEdit::timerEvent(QTimerEvent* event) {
    if (event->timerId() != measuring_.timerId())
        return QTextEdit::timerEvent(event);
    keepView([&] { layout_->measureFor(slice); });
    if (layout_->isEstimated())
        measuring_.start(rest, this);
    else
        measuring_.stop();
}

} // namespace desktop
