// How the text control shows a text whose heights are not all known.
#include "desktop/editor/rich_text_edit.h"

#include <QScrollBar>
#include <QTimerEvent>

namespace desktop {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds slice{6};
constexpr int rest = 10;          // ms between two slices
constexpr int afterAChange = 200; // ms, longer than from one key to the next

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

// A key is not to wait for a slice.
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
    if (layout_->isEstimated() && !measuring_.isActive())
        measuring_.start(rest, this);
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
