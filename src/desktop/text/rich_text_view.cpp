// How the text control shows a text while some heights are still estimated.
#include "desktop/text/rich_text_edit.h"

#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>
#include <QTimerEvent>
#include <algorithm>

namespace desktop {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds slice{6};
constexpr int rest = 10;          // ms between two slices
constexpr int afterAChange = 200; // ms, longer than between two key presses
constexpr int manyUnits = 20'000; // about what a large screen shows

// A zigzag line, as under a misspelled word.
void paintWave(QPainter& painter, const QRect& place, const QColor& color) {
    constexpr int height = 3; // pixels
    constexpr int length = 4; // pixels of a wave
    static QBrush brush;
    if (brush.color() != color || brush.style() != Qt::TexturePattern) {
        QImage wave(length, height, QImage::Format_ARGB32_Premultiplied);
        wave.fill(Qt::transparent);
        for (const auto& [x, y] : {std::pair{0, 2}, {1, 1}, {2, 0}, {3, 1}})
            wave.setPixelColor(x, y, color);
        brush = QBrush(wave);
        brush.setColor(color);
    }
    const QRect line(place.left(), place.bottom() - height + 1, place.width(), height);
    painter.setBrushOrigin(line.topLeft());
    painter.fillRect(line, brush);
}

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
    paintMarks(event->rect());
    QTextEdit::paintEvent(event);
    paintPageBreaks(event->rect());
    paintOffer();
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

void RichTextEdit::setZoom(int percent) {
    if (percent == zoom_)
        return;
    const QRect before = cursorRect();
    const bool caretShown = viewport()->rect().intersects(before);
    zoom_ = percent;
    // The hint in an empty text takes the font of the viewport, which has nothing to do with the document's.
    QFont larger = font();
    larger.setPointSizeF(larger.pointSizeF() * zoom_ / 100);
    viewport()->setFont(larger);
    keepView([&] {
        layout_->setZoom(zoom_, logicalDpiY());
        const int top = verticalScrollBar()->value();
        layout_->measureBetween(top, top + viewport()->height());
    });
    if (caretShown)
        ensureCursorVisible();
    viewport()->update();
}

void RichTextEdit::wheelEvent(QWheelEvent* event) {
    if (event->modifiers() != Qt::ControlModifier) {
        QTextEdit::wheelEvent(event);
        return;
    }
    event->accept();
    wheeled_ += event->angleDelta().y();
    if (const int steps = wheeled_ / QWheelEvent::DefaultDeltasPerStep; steps != 0) {
        wheeled_ -= steps * QWheelEvent::DefaultDeltasPerStep;
        Zoom(steps);
    }
}

std::vector<QRect> RichTextEdit::rectanglesOf(std::int32_t position, std::int32_t length) const {
    return rectanglesBetween(documentPosition(*document_, position),
                             documentPosition(*document_, std::int64_t{position} + length));
}

// Positions of the document. The same as the control's own rectangles of the caret, for two positions that
// are mostly in one paragraph.
std::vector<QRect> RichTextEdit::rectanglesBetween(int begin, int end) const {
    const QPointF scrolled(horizontalScrollBar()->value(), verticalScrollBar()->value());
    QTextBlock block;
    QPointF corner;
    const auto rectangleAt = [&](int position) {
        if (!block.isValid() || position < block.position() ||
            position >= block.position() + block.length()) {
            block = document_->findBlock(position);
            corner = layout_->blockBoundingRect(block).topLeft() - scrolled;
        }
        const int inBlock = position - block.position();
        const QTextLine line = block.layout()->lineForTextPosition(inBlock);
        if (!line.isValid())
            return QRectF(corner, QSizeF(1, 1)).toRect();
        return QRectF(corner.x() + line.cursorToX(inBlock), corner.y() + line.y(), 1, line.height()).toRect();
    };
    const QRect first = rectangleAt(begin);
    const QRect last = rectangleAt(end);
    if (first.top() == last.top())
        return {QRect(QPoint(std::min(first.left(), last.left()), first.top()),
                      QPoint(std::max(first.left(), last.left()), std::max(first.bottom(), last.bottom())))};
    return {QRect(first.topLeft(), QPoint(viewport()->width(), first.bottom())),
            QRect(QPoint(0, last.top()), last.bottomLeft())};
}

// Below the letters, so that they stay as they are.
void RichTextEdit::paintMarks(const QRect& area) {
    const auto placeAt = [&](const QPoint& point) {
        return programPosition(*document_, cursorForPosition(point).position());
    };
    const auto marks = MarksIn(placeAt(area.topLeft()), placeAt(area.bottomRight()) + 1);
    if (marks.empty())
        return;
    QPainter painter(viewport());
    const bool dark = palette().color(QPalette::Base).lightness() < 128;
    NearPositions positions(*document_);
    for (const platform::MarkedPart& mark : marks) {
        const int begin = positions.documentPosition(mark.position);
        const int end = positions.documentPosition(mark.position + mark.length);
        for (const QRect& place : rectanglesBetween(begin, end)) {
            if (mark.mark == platform::Mark::Heard) {
                painter.fillRect(place, QColor(0xFF, 0xE0, 0x82));
            } else if (mark.mark == platform::Mark::Misspelled) {
                paintWave(painter, place, dark ? QColor(0xFF, 0x7B, 0x7B) : QColor(0xD0, 0x30, 0x30));
            } else {
                painter.setPen(QPen(QColor(0x2A, 0x6F, 0xC0), 1, Qt::DotLine));
                painter.drawLine(place.bottomLeft(), place.bottomRight());
            }
        }
    }
}

void RichTextEdit::marksChanged(std::int32_t position, std::int32_t length) {
    if (length > manyUnits)
        return viewport()->update();
    const std::vector<QRect> places = rectanglesOf(position, length);
    for (const QRect& place : places)
        viewport()->update(place.adjusted(-1, -1, 1, 1));
    // Whole lines between the first and the last one.
    if (places.size() > 1)
        viewport()->update(
            QRect(QPoint(0, places.front().bottom()), QPoint(viewport()->width(), places.back().top())));
}

void RichTextEdit::scrollTo(std::int32_t position, std::int32_t length) {
    QScrollBar& bar = *verticalScrollBar();
    const int height = viewport()->height();
    const std::vector<QRect> places = rectanglesOf(position, length);
    // A third of the view below the top leaves room for what comes next.
    if (places.front().top() < 0 || places.back().bottom() > height)
        bar.setValue(bar.value() + places.front().top() - height / 3);
}

std::optional<std::int32_t> RichTextEdit::letterAt(const QPoint& point) const {
    const QPoint scrolled(horizontalScrollBar()->value(), verticalScrollBar()->value());
    const int letter = layout_->hitTest(point + scrolled, Qt::ExactHit);
    return letter < 0 ? std::nullopt : std::optional(programPosition(*document_, letter));
}

void RichTextEdit::showPointer(const QPoint& place, Qt::KeyboardModifiers modifiers) {
    const auto letter = modifiers == Qt::ControlModifier ? letterAt(place) : std::nullopt;
    const bool hand = letter && Clickable(*letter);
    viewport()->setCursor(hand ? Qt::PointingHandCursor : Qt::IBeamCursor);
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
