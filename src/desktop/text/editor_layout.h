#pragma once

#include "desktop/text/block_heights.h"

#include <QAbstractTextDocumentLayout>
#include <QImage>
#include <chrono>

class QTextBlock;
class QTextLayout;

namespace desktop {

// Lays the paragraphs of a document out for the screen; a document of the editor has no tables and no frames.
// Qt's own layout goes over all paragraphs behind a change. This one lays out those that are seen or asked
// for, and estimates the heights of the others until `measureFor` has come by. Places are pixels of the page.
class EditorLayout : public QAbstractTextDocumentLayout {
public:
    explicit EditorLayout(QTextDocument& document) : QAbstractTextDocumentLayout(&document) {}

    void draw(QPainter* painter, const PaintContext& context) override;
    int hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const override;
    int pageCount() const override { return 1; }
    QSizeF documentSize() const override;
    QRectF frameBoundingRect(QTextFrame* frame) const override;
    QRectF blockBoundingRect(const QTextBlock& block) const override;

    // True until all heights are measured and told.
    bool isEstimated() const;
    // Measures what lies between two heights.
    void measureBetween(int top, int bottom);
    // Measures what is estimated, for about so long.
    void measureFor(std::chrono::milliseconds time);

    // The number of a paragraph between two heights, one that no estimate will move if there is one.
    int paragraphBetween(int top, int bottom) const;
    // Where a paragraph begins.
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
    BlockHeight estimate(const QTextBlock& block) const;
    // Lays a paragraph out, into its own layout or another one.
    BlockHeight layOut(const QTextBlock& block, QTextLayout& layout) const;
    bool measure(const QTextBlock& block, QTextLayout& layout);
    // The layout of a paragraph, at its place.
    const QTextLayout& laidOut(const QTextBlock& block) const;
    void drawBlock(QPainter& painter, const PaintContext& context, const QTextBlock& block) const;
    QImage picture(const QTextFormat& format) const;
    void tellSize();

    BlockHeights heights_;
    int next_ = 0; // where to go on measuring
    double letterWidth_ = 1;
    double lineHeight_ = 1;
    QSizeF told_;
};

} // namespace desktop
