#include "desktop/text/editor_layout.h"

#include "desktop/text/layout_limits.h"
#include "desktop/text/readable_colors.h"

#include <QFontMetrics>
#include <QFontMetricsF>
#include <QPainter>
#include <QStyle>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <QTextList>
#include <QUrl>
#include <algorithm>
#include <cmath>

namespace desktop {

namespace {

// A change up to this size is measured at once. Of a larger one, the rest is measured when it becomes
// visible.
constexpr int fewBlocks = 16;
constexpr int fewUnits = 20'000;

// A screen by its density alone.
class Density : public QPaintDevice {
public:
    explicit Density(int dotsPerInch) : dotsPerInch_(dotsPerInch) {}
    QPaintEngine* paintEngine() const override { return nullptr; }

protected:
    int metric(PaintDeviceMetric metric) const override {
        const bool isDensity =
            metric == PdmDpiX || metric == PdmDpiY || metric == PdmPhysicalDpiX || metric == PdmPhysicalDpiY;
        return isDensity ? dotsPerInch_ : QPaintDevice::metric(metric);
    }

private:
    int dotsPerInch_;
};

QTextOption optionOf(const QTextBlock& block) {
    QTextOption option = block.document()->defaultTextOption();
    const QTextBlockFormat format = block.blockFormat();
    const Qt::LayoutDirection direction = block.textDirection();
    option.setTextDirection(direction);
    option.setTabs(format.tabPositions());
    option.setAlignment(QStyle::visualAlignment(direction, format.hasProperty(QTextFormat::BlockAlignment)
                                                               ? format.alignment()
                                                               : option.alignment()));
    // Qt scans an endless word again for each of its lines.
    if (hasEndlessWord(block.text()))
        option.setWrapMode(QTextOption::WrapAnywhere);
    return option;
}

QTextLine lineAt(const QTextLayout& layout, double y) {
    int number = layout.lineCount() - 1;
    while (number > 0 && layout.lineAt(number).y() > y)
        --number;
    return layout.lineAt(number);
}

// Draws a disc in front of the first line.
void drawBullet(QPainter& painter, const QTextBlock& block, const QTextLayout& layout, const QFont& font,
                const QColor& color) {
    const QFontMetrics metrics(font);
    const QRectF line = layout.lineAt(0).naturalTextRect().translated(layout.position());
    const int size = metrics.lineSpacing() / 3;
    const int space = metrics.horizontalAdvance(QLatin1Char(' '));
    const bool fromTheLeft = block.textDirection() == Qt::LeftToRight;
    const double x = fromTheLeft ? std::round(line.left()) - space - size : std::round(line.right()) + space;
    const int middle = metrics.height() / 2;
    const double y = std::round(line.top()) + middle - size / 2.0;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(color);
    painter.setPen(Qt::NoPen);
    painter.drawEllipse(QRectF(x, y, size, size));
    painter.restore();
}

} // namespace

void EditorLayout::setZoom(int percent, int density) {
    denser_ = percent == 100 ? nullptr : std::make_unique<Density>((density * percent + 50) / 100);
    zoom_ = denser_ ? static_cast<double>(denser_->logicalDpiY()) / density : 1;
    setPaintDevice(denser_.get());
    if (isReady())
        documentChanged(0, 0, document()->characterCount());
}

int EditorLayout::gapBefore(const QTextBlock& block) const {
    const QTextBlock before = block.previous();
    if (!before.isValid())
        return 0;
    return static_cast<int>(
        std::lround(zoomed(std::max(block.blockFormat().topMargin(), before.blockFormat().bottomMargin()))));
}

bool EditorLayout::isReady() const {
    return heights_.count() > 0 && heights_.count() == document()->blockCount();
}

bool EditorLayout::isEstimated() const {
    return isReady() && (heights_.nextEstimate(0) >= 0 || documentSize() != told_);
}

QSizeF EditorLayout::documentSize() const {
    return {heights_.width() + 2.0 * margin(), heights_.total() + 2.0 * margin()};
}

QRectF EditorLayout::frameBoundingRect(QTextFrame*) const {
    return {QPointF(), documentSize()};
}

void EditorLayout::tellSize() {
    if (const QSizeF size = documentSize(); size != told_) {
        told_ = size;
        documentSizeChanged(size);
    }
}

BlockHeight EditorLayout::estimate(const QTextBlock& block) const {
    const double lines = std::ceil(std::max(1.0, block.length() * letterWidth_ / std::max(1.0, textWidth())));
    return {gapBefore(block), static_cast<int>(lines * lineHeight_), 0, false};
}

BlockHeight EditorLayout::layOut(const QTextBlock& block, QTextLayout& layout) const {
    const QTextBlockFormat format = block.blockFormat();
    layout.setTextOption(optionOf(block));
    const double left = zoomed(format.leftMargin());
    const double right = zoomed(format.rightMargin());
    const double width = textWidth() - left - right;
    double indent = zoomed(format.textIndent()); // first line only
    double widest = 0;
    double height = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLeadingIncluded(true);
        line.setLineWidth(std::max(1.0, width - indent));
        const bool fromTheLeft = layout.textOption().textDirection() == Qt::LeftToRight;
        line.setPosition({left + (fromTheLeft ? indent : 0), height});
        // Some fonts have a negative leading, which the height of a line leaves out.
        height += std::ceil(line.ascent() + line.descent() + line.leading());
        widest = std::max(widest, line.x() + line.naturalTextWidth() + right);
        indent = 0;
    }
    layout.endLayout();
    return {gapBefore(block), static_cast<int>(std::ceil(height)), static_cast<int>(std::ceil(widest)), true};
}

// Returns true if the paragraphs below move.
bool EditorLayout::measure(const QTextBlock& block, QTextLayout& layout) {
    const int before = heights_[block.blockNumber()].whole();
    const BlockHeight height = layOut(block, layout);
    heights_.set(block.blockNumber(), height);
    return height.whole() != before;
}

const QTextLayout& EditorLayout::laidOut(const QTextBlock& block) const {
    QTextLayout& layout = *block.layout();
    if (layout.lineCount() == 0)
        layOut(block, layout);
    layout.setPosition(QPointF(margin(), top(block.blockNumber()) + heights_[block.blockNumber()].gap));
    return layout;
}

void EditorLayout::documentChanged(int from, int /*removed*/, int added) {
    const QTextDocument& text = *document();
    if (text.pageSize().width() <= 0)
        return;
    const int count = text.blockCount();
    int first = text.findBlock(from).blockNumber();
    const QTextBlock end = text.findBlock(from + added);
    int last = end.isValid() ? end.blockNumber() : count - 1;
    int gone = heights_.count() - (count - (last - first + 1));
    if (heights_.count() == 0 || gone < 0 || first + gone > heights_.count()) {
        first = 0;
        last = count - 1;
        gone = heights_.count();
    }
    if (last - first + 1 == count) {
        const QFontMetricsF metrics(zoomed(text.defaultFont()));
        letterWidth_ = metrics.averageCharWidth();
        lineHeight_ = metrics.lineSpacing();
    }

    const int before = heights_.total();
    const bool few = last - first < fewBlocks && added < fewUnits;
    std::vector<BlockHeight> heights;
    QTextBlock block = text.findBlockByNumber(first);
    for (; block.isValid() && block.blockNumber() <= last; block = block.next()) {
        block.clearLayout();
        heights.push_back(few ? layOut(block, *block.layout()) : estimate(block));
    }
    heights_.replace(first, gone, heights);
    if (block.isValid()) {
        BlockHeight behind = heights_[last + 1];
        behind.gap = gapBefore(block);
        heights_.set(last + 1, behind);
    }
    const bool moved = heights_.total() != before;
    constexpr double farBelow = 1e9;
    const int begin = top(first);
    const int bottom = top(last) + heights_[last].whole();
    tellSize();
    update(QRectF(0, begin, farBelow, moved ? farBelow : bottom - begin));
}

void EditorLayout::measureBetween(int top, int bottom) {
    if (!isReady())
        return;
    int index = heights_.at(top - margin());
    int place = heights_.top(index) + margin();
    for (QTextBlock block = document()->findBlockByNumber(index); block.isValid() && place < bottom;
         block = block.next(), ++index) {
        if (!heights_[index].measured)
            measure(block, *block.layout());
        place += heights_[index].whole();
    }
    tellSize();
}

// Uses a temporary layout: filling the paragraphs' own layouts would take much memory in a long text.
void EditorLayout::measureFor(std::chrono::milliseconds time) {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + time;
    while (isReady() && Clock::now() < end) {
        next_ = heights_.nextEstimate(std::max(next_, 0));
        if (next_ < 0)
            break;
        const QTextBlock block = document()->findBlockByNumber(next_);
        QTextLayout layout(block);
        measure(block, layout);
    }
    tellSize();
}

int EditorLayout::paragraphBetween(int top, int bottom) const {
    if (!isReady())
        return 0;
    const int first = heights_.at(top - margin());
    int place = heights_.top(first) + margin();
    for (int index = first; index < heights_.count() && place < bottom; ++index) {
        if (heights_[index].measured && place >= top)
            return index;
        place += heights_[index].whole();
    }
    return first;
}

QRectF EditorLayout::blockBoundingRect(const QTextBlock& block) const {
    if (!isReady() || !block.isValid())
        return {};
    if (!heights_[block.blockNumber()].measured) {
        // The caller must get a final position, not an estimate.
        auto& self = static_cast<EditorLayout&>(*document()->documentLayout());
        if (self.measure(block, *block.layout())) {
            constexpr double farBelow = 1e9;
            self.tellSize();
            self.update(QRectF(0, top(block.blockNumber()), farBelow, farBelow));
        }
    }
    const QTextLayout& layout = laidOut(block);
    return {layout.position(), layout.boundingRect().size()};
}

int EditorLayout::hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const {
    const bool exact = accuracy == Qt::ExactHit;
    if (!isReady())
        return exact ? -1 : 0;
    const double bottom = margin() + heights_.total();
    const int index = heights_.at(static_cast<int>(point.y()) - margin());
    const QTextBlock block = document()->findBlockByNumber(index);
    const QRectF place = blockBoundingRect(block);
    const QTextLayout& layout = *block.layout();
    const int end = block.position() + block.length() - 1 + static_cast<int>(layout.preeditAreaText().size());
    if (point.y() >= std::max(bottom, place.bottom()))
        return exact ? -1 : end;
    const QPointF inside = point - layout.position();
    const QTextLine line = lineAt(layout, inside.y());
    if (exact && !line.naturalTextRect().contains(inside))
        return -1;
    const int offset =
        line.xToCursor(inside.x(), exact ? QTextLine::CursorOnCharacter : QTextLine::CursorBetweenCharacters);
    return std::min(block.position() + offset, end);
}

void EditorLayout::draw(QPainter* painter, const PaintContext& context) {
    if (!isReady())
        return;
    const QRectF clip = context.clip.isValid() ? context.clip : QRectF(QPointF(), documentSize());
    int index = heights_.at(static_cast<int>(clip.top()) - margin());
    int place = heights_.top(index) + margin();
    for (QTextBlock block = document()->findBlockByNumber(index); block.isValid() && place <= clip.bottom();
         block = block.next(), ++index) {
        // The new size is reported later: nothing may scroll during painting.
        if (!heights_[index].measured)
            measure(block, *block.layout());
        drawBlock(*painter, context, block);
        place += heights_[index].whole();
    }
}

void EditorLayout::drawBlock(QPainter& painter, const PaintContext& context, const QTextBlock& block) const {
    const QTextLayout& layout = laidOut(block);
    QList<QTextLayout::FormatRange> selections = readableColors(block, context.palette);
    for (const Selection& selection : context.selections) {
        const int begin = selection.cursor.selectionStart() - block.position();
        const int end = selection.cursor.selectionEnd() - block.position();
        if (begin < block.length() && end > 0 && begin < end)
            selections.push_back({begin, end - begin, selection.format});
    }
    const QColor color = context.palette.color(QPalette::Text);
    if (block.textList())
        drawBullet(painter, block, layout, zoomed(block.charFormat().font()), color);
    const QPen pen = painter.pen();
    painter.setPen(color);
    layout.draw(&painter, QPointF(), selections, context.clip);
    // A negative position lies in the text that an input method is composing.
    const bool composed = context.cursorPosition < -1 && !layout.preeditAreaText().isEmpty();
    if (composed || block.contains(context.cursorPosition)) {
        const int place = composed ? layout.preeditAreaPosition() - (context.cursorPosition + 2)
                                   : context.cursorPosition - block.position();
        layout.drawCursor(&painter, QPointF(), place, std::max(1, property("cursorWidth").toInt()));
    }
    painter.setPen(pen);
}

QImage EditorLayout::picture(const QTextFormat& format) const {
    return document()
        ->resource(QTextDocument::ImageResource, QUrl(format.toImageFormat().name()))
        .value<QImage>();
}

void EditorLayout::resizeInlineObject(QTextInlineObject item, int, const QTextFormat& format) {
    const QTextImageFormat image = format.toImageFormat();
    // Hidden text has size 0.
    const bool known =
        image.hasProperty(QTextFormat::ImageWidth) && image.hasProperty(QTextFormat::ImageHeight);
    const QSizeF size = known ? QSizeF(image.width(), image.height()) : QSizeF(picture(format).size());
    item.setWidth(zoomed(size.width()));
    item.setAscent(zoomed(size.height()));
    item.setDescent(0);
}

void EditorLayout::drawInlineObject(QPainter* painter, const QRectF& rect, QTextInlineObject, int,
                                    const QTextFormat& format) {
    painter->drawImage(rect, picture(format));
}

} // namespace desktop
