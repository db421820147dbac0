#include "desktop/text/pages.h"

#include "base/failure.h"
#include "desktop/text/layout_limits.h"

#include <QAbstractTextDocumentLayout>
#include <QCoreApplication>
#include <QImage>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <QUrl>
#include <algorithm>
#include <vector>

namespace desktop {

namespace {

constexpr double pixelsPerInch = 96; // of lengths in a document

// The size of a picture, in the document's pixels.
QSizeF pictureSize(const QTextDocument& document, const QTextImageFormat& format) {
    const QSizeF own =
        document.resource(QTextDocument::ImageResource, QUrl(format.name())).value<QImage>().size();
    return {format.width() > 0 ? format.width() : own.width(),
            format.height() > 0 ? format.height() : own.height()};
}

// Scales pictures down that are larger than the page; otherwise they would be cut off.
void fitPictures(QTextDocument& document, QSizeF page) {
    struct Picture {
        int position;
        QTextImageFormat format;
    };
    std::vector<Picture> tooLarge;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            QTextImageFormat format = part.fragment().charFormat().toImageFormat();
            if (!format.isValid() || format.boolProperty(Hidden))
                continue;
            const QSizeF size = pictureSize(document, format);
            const double scale = std::min(page.width() / size.width(), page.height() / size.height());
            if (!(scale < 1))
                continue;
            format.setWidth(size.width() * scale);
            format.setHeight(size.height() * scale);
            tooLarge.push_back({part.fragment().position(), format});
        }
    }
    QTextCursor cursor(&document);
    for (const Picture& picture : tooLarge) {
        cursor.setPosition(picture.position);
        cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
        cursor.setCharFormat(picture.format);
    }
}

// Qt scales text and pictures to the resolution of the paper, but takes paragraph margins for device dots.
void scaleParagraphs(QTextDocument& document, double scale) {
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    QTextOption option = document.defaultTextOption();
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (hasEndlessWord(block.text()))
            option.setWrapMode(QTextOption::WrapAnywhere);
        const QTextBlockFormat format = block.blockFormat();
        QTextBlockFormat scaled = format;
        scaled.setLeftMargin(format.leftMargin() * scale);
        scaled.setRightMargin(format.rightMargin() * scale);
        scaled.setTopMargin(format.topMargin() * scale);
        scaled.setBottomMargin(format.bottomMargin() * scale);
        scaled.setTextIndent(format.textIndent() * scale);
        if (scaled == format)
            continue;
        cursor.setPosition(block.position());
        cursor.setBlockFormat(scaled);
    }
    cursor.endEditBlock();
    document.setDefaultTextOption(option);
}

// Each break begins a page. If a paragraph ends directly after a break, the empty line at the top of the page
// is removed.
void beginPages(EditorDocument& document) {
    struct Break {
        int position;
        bool endsParagraph;
    };
    std::vector<Break> breaks;
    for (QTextBlock block = document.begin().next(); block.isValid(); block = block.next())
        if (const PageBreak pageBreak = document.pageBreakBefore(block); pageBreak != PageBreak::None)
            breaks.push_back({block.position(), pageBreak == PageBreak::InParagraph && block.length() == 1 &&
                                                    block.next().isValid()});
    QTextBlockFormat onNewPage;
    onNewPage.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    std::for_each(breaks.rbegin(), breaks.rend(), [&](const Break& each) {
        cursor.setPosition(each.position + (each.endsParagraph ? 1 : 0));
        cursor.mergeBlockFormat(onNewPage);
        if (!each.endsParagraph)
            return;
        cursor.setPosition(each.position);
        cursor.deletePreviousChar();
    });
    cursor.endEditBlock();
}

} // namespace

void printPages(EditorDocument& document, QPagedPaintDevice& paper) {
    QPainter painter;
    if (!painter.begin(&paper))
        throw base::Failure("the printer takes no page");
    const QSizeF page = paper.pageLayout().paintRectPixels(paper.logicalDpiX()).size();
    // The placeholder for kept RTF is visible on the screen only.
    document.addResource(QTextDocument::ImageResource, QUrl(QStringLiteral("kept:mark")),
                         QImage(1, 1, QImage::Format_ARGB32_Premultiplied));
    const double scale = paper.logicalDpiX() / pixelsPerInch;
    fitPictures(document, page / scale);
    beginPages(document);
    scaleParagraphs(document, scale);
    QAbstractTextDocumentLayout& layout = *document.documentLayout();
    layout.setPaintDevice(&paper);
    document.setDocumentMargin(0);
    document.setPageSize(page);
    QAbstractTextDocumentLayout::PaintContext onPaper;
    onPaper.palette.setColor(QPalette::Text, Qt::black);
    for (int number = 0, count = document.pageCount(); number < count; ++number) {
        if (number > 0) {
            paper.newPage();
            // Let displays, the timed cycle and other timers continue. User input stays excluded: a command
            // in the middle of printing would change the document that is printed.
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        }
        painter.save();
        painter.translate(0, -number * page.height());
        onPaper.clip = QRectF(QPointF(0, number * page.height()), page);
        painter.setClipRect(onPaper.clip);
        layout.draw(&painter, onPaper);
        painter.restore();
    }
}

} // namespace desktop
