#pragma once

#include "desktop/text/block_heights.h"

#include <QAbstractTextDocumentLayout>
#include <QImage>
#include <QPaintDevice>
#include <chrono>
#include <memory>

class QTextBlock;
class QTextLayout;

namespace desktop {

// Lays out the paragraphs of a document for the screen; the editor's documents have no tables and no frames.
// Qt's own layout visits all paragraphs after a change. This one lays out only those that are visible or
// asked for, and estimates the heights of the others until `measureFor` reaches them. Positions are pixels of
// the page.
class EditorLayout : public QAbstractTextDocumentLayout {
public:
    explicit EditorLayout(QTextDocument& document) : QAbstractTextDocumentLayout(&document) {}

    void draw(QPainter* painter, const PaintContext& context) override;
    int hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const override;
    int pageCount() const override { return 1; }
    QSizeF documentSize() const override;
    QRectF frameBoundingRect(QTextFrame* frame) const override;
    QRectF blockBoundingRect(const QTextBlock& block) const override;

    // Shows the text larger, in percent, on a screen of this density (dots per inch). Formats stay as they
    // are: letters and tabs are measured for a screen that is denser by as much.
    void setZoom(int percent, int density);

    // True until all heights are measured and the final size is reported.
    bool isEstimated() const;
    // Measures the paragraphs between two heights (pixels).
    void measureBetween(int top, int bottom);
    // Measures estimated paragraphs for about `time`.
    void measureFor(std::chrono::milliseconds time);

    // The index of a paragraph between two heights: if possible, one that later measuring does not move.
    int paragraphBetween(int top, int bottom) const;
    // The y coordinate where a paragraph begins.
    int top(int paragraph) const { return margin() + heights_.top(paragraph); }

protected:
    void documentChanged(int from, int removed, int added) override;
    void resizeInlineObject(QTextInlineObject item, int position, const QTextFormat& format) override;
    void positionInlineObject(QTextInlineObject, int, const QTextFormat&) override {}
    void drawInlineObject(QPainter* painter, const QRectF& rect, QTextInlineObject object, int position,
                          const QTextFormat& format) override;

private:
    bool isReady() const;
    int margin() const { return static_cast<int>(document()->documentMargin()); }
    double textWidth() const { return document()->pageSize().width() - 2 * margin(); }
    double zoomed(double pixels) const { return pixels * zoom_; }
    QFont zoomed(const QFont& font) const { return denser_ ? QFont(font, denser_.get()) : font; }
    // The space above a paragraph in pixels: the larger of its own top margin and the bottom margin before
    // it.
    int gapBefore(const QTextBlock& block) const;
    BlockHeight estimate(const QTextBlock& block) const;
    // Lays out a paragraph, either in its own layout or in another one.
    BlockHeight layOut(const QTextBlock& block, QTextLayout& layout) const;
    bool measure(const QTextBlock& block, QTextLayout& layout);
    // The paragraph's layout, moved to its final position.
    const QTextLayout& laidOut(const QTextBlock& block) const;
    void drawBlock(QPainter& painter, const PaintContext& context, const QTextBlock& block) const;
    QImage picture(const QTextFormat& format) const;
    void tellSize();

    BlockHeights heights_;
    int next_ = 0; // paragraph where measuring continues
    double letterWidth_ = 1;
    double lineHeight_ = 1;
    QSizeF told_;
    double zoom_ = 1;
    std::unique_ptr<QPaintDevice> denser_; // null in the normal size
};

} // namespace desktop
