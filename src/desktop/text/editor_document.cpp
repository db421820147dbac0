#include "desktop/text/editor_document.h"

#include "desktop/qt/conversions.h"
#include "rtf/read/picture.h"

#include <QImage>
#include <QPainter>
#include <QTextBlock>
#include <QUrl>

namespace desktop {

namespace {

// Placeholder for kept RTF that cannot be drawn.
QImage keptMark() {
    QImage mark(7, 11, QImage::Format_ARGB32_Premultiplied);
    mark.fill(Qt::transparent);
    QPainter painter(&mark);
    painter.setPen(QColor(0x9A, 0xA3, 0xB0));
    painter.drawRect(1, 1, 4, 8);
    return mark;
}

void takeNoRoom(QTextImageFormat& format) {
    format.setWidth(0);
    format.setHeight(0);
}

} // namespace

void nameFont(QTextCharFormat& format, const QString& name, bool shown) {
    format.setProperty(FontName, name);
    if (shown)
        format.setFontFamilies({name});
}

QTextList& BulletLists::forParagraph(QTextCursor& paragraph) {
    if (paragraphs_++ % longest == 0) {
        // A bullet in front of the paragraph; the list adds no indent of its own.
        QTextListFormat format;
        format.setStyle(QTextListFormat::ListDisc);
        format.setIndent(0);
        list_ = paragraph.createList(format);
    }
    return *list_;
}

void giveBullet(QTextBlockFormat& format, const QTextList& list) {
    const int first = static_cast<int>(twips(format.textIndent()));
    format.setObjectIndex(list.objectIndex());
    format.setProperty(FirstIndent, first);
    format.setTextIndent(0);
}

void takeBullet(QTextBlockFormat& format) {
    const int first = format.intProperty(FirstIndent);
    const bool itsOwn = first == -bulletIndent && format.leftMargin() == pixelsOfTwips(bulletIndent);
    format.setObjectIndex(-1);
    format.clearProperty(FirstIndent);
    format.clearProperty(ListWords);
    format.setTextIndent(itsOwn ? 0 : pixelsOfTwips(first));
    if (itsOwn)
        format.setLeftMargin(0);
}

EditorDocument::EditorDocument(const QFont& font) {
    setUndoRedoEnabled(false);
    setDefaultFont(font);
}

QTextImageFormat EditorDocument::anchorOf(std::string range, const QTextCharFormat& letters) {
    QTextImageFormat format;
    format.merge(letters);
    format.setObjectType(QTextFormat::ImageObject);
    format.setProperty(KeptRange, static_cast<int>(kept.size()));
    format.setName(QStringLiteral("kept:mark"));
    if (const auto picture = rtf::pictureOf(range)) {
        format.setName(QStringLiteral("kept:%1").arg(kept.size()));
        if (picture->width > 0 && picture->height > 0) {
            format.setWidth(pixelsOfTwips(picture->width));
            format.setHeight(pixelsOfTwips(picture->height));
        }
    }
    if (format.boolProperty(Hidden))
        takeNoRoom(format);
    kept.push_back(std::move(range));
    return format;
}

QTextImageFormat EditorDocument::hiddenLetters(const QString& letters, const QTextCharFormat& format) {
    QTextImageFormat image;
    image.merge(format);
    image.setObjectType(QTextFormat::ImageObject);
    image.setProperty(HiddenText, letters);
    image.setName(QStringLiteral("kept:mark"));
    takeNoRoom(image);
    return image;
}

PageBreak EditorDocument::pageBreakBefore(const QTextBlock& block) const {
    const QTextBlockFormat format = block.blockFormat();
    const QTextBlockFormat before = block.previous().blockFormat();
    const auto begins = [&](int property) {
        const int number = format.intProperty(property);
        return number != 0 && number != before.intProperty(property);
    };
    const bool rest = format.boolProperty(InParagraph);
    if (begins(PageBreakNumber) && (!rest || block.previous().isValid()))
        return rest ? PageBreak::InParagraph : PageBreak::BeforeParagraph;
    if (!begins(SectionIndex))
        return PageBreak::None;
    const auto section = static_cast<std::size_t>(format.intProperty(SectionIndex));
    const bool goesOn = section >= sections.size() ||
                        sections[section].words.find("\\sbknone") != std::string::npos ||
                        sections[section].words.find("\\sbkcol") != std::string::npos;
    return goesOn ? PageBreak::None : PageBreak::Section;
}

void EditorDocument::breakPageAt(QTextCursor& cursor, const QTextCharFormat& letters) {
    QTextBlockFormat rest = cursor.blockFormat();
    rest.setObjectIndex(-1);
    rest.setTextIndent(0);
    rest.setTopMargin(0);
    for (const int ofTheBeginning : {FirstIndent, ListWords, SectionIndex})
        rest.clearProperty(ofTheBeginning);
    rest.setProperty(InParagraph, true);
    breakPage(rest);
    cursor.insertBlock(rest, letters);
}

QVariant EditorDocument::loadResource(int type, const QUrl& name) {
    if (type != ImageResource || name.scheme() != QStringLiteral("kept"))
        return {};
    bool isNumber = false;
    const std::size_t index = name.path().toUInt(&isNumber);
    if (!isNumber || index >= kept.size())
        return keptMark();
    const auto picture = rtf::pictureOf(kept[index]);
    if (!picture)
        return keptMark();
    const QImage image = QImage::fromData(reinterpret_cast<const uchar*>(picture->bytes.data()),
                                          static_cast<int>(picture->bytes.size()));
    return image.isNull() ? keptMark() : image;
}

} // namespace desktop
