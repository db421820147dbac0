#include "desktop/text/export_document.h"

#include "base/failure.h"
#include "desktop/text/rtf_bridge.h"
#include "rtf/read/picture.h"

#include <QBuffer>
#include <QTextBlock>
#include <QTextDocumentWriter>
#include <QTextList>
#include <algorithm>
#include <utility>
#include <vector>

namespace desktop {

namespace {

// The pictures of the text by their numbers; nothing for what is kept but is no picture.
std::vector<std::optional<rtf::Picture>> picturesOf(const EditorDocument& document) {
    std::vector<std::optional<rtf::Picture>> pictures;
    for (const std::string& range : document.kept)
        pictures.push_back(rtf::pictureOf(range));
    return pictures;
}

bool isPicture(const QTextCharFormat& format, const std::vector<std::optional<rtf::Picture>>& pictures) {
    const int number = format.hasProperty(KeptRange) ? format.intProperty(KeptRange) : -1;
    return number >= 0 && static_cast<std::size_t>(number) < pictures.size() &&
           !format.boolProperty(Hidden) && pictures[static_cast<std::size_t>(number)].has_value();
}

// Other programs would show a sign for hidden text and for objects; page breaks get Qt's own property.
void useQtsTerms(EditorDocument& document, const std::vector<std::optional<rtf::Picture>>& pictures) {
    std::vector<TextRange> signs;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (document.pageBreakBefore(block) != PageBreak::None) {
            QTextBlockFormat format = block.blockFormat();
            format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
            QTextCursor(block).setBlockFormat(format);
        }
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextFragment fragment = part.fragment();
            if (fragment.charFormat().isImageFormat() && !isPicture(fragment.charFormat(), pictures))
                signs.push_back({fragment.position(), fragment.position() + fragment.length()});
        }
    }
    for (auto sign = signs.rbegin(); sign != signs.rend(); ++sign) {
        QTextCursor cursor(&document);
        cursor.setPosition(sign->begin);
        cursor.setPosition(sign->end, QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
    }
}

// Qt's writer knows fonts only by their former property, and leaves the list out around items without an
// indent.
void useOlderTerms(EditorDocument& document) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (QTextList* const list = block.textList(); list && list->format().indent() == 0) {
            QTextListFormat format = list->format();
            format.setIndent(1);
            list->setFormat(format);
        }
        std::vector<std::pair<TextRange, QString>> fonts;
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextFragment letters = part.fragment();
            const QStringList families = letters.charFormat().fontFamilies().toStringList();
            if (!families.isEmpty())
                fonts.push_back(
                    {{letters.position(), letters.position() + letters.length()}, families.front()});
        }
        for (const auto& [range, family] : fonts) {
            QTextCharFormat format;
            format.setProperty(QTextFormat::OldFontFamily, family);
            QTextCursor cursor(&document);
            cursor.setPosition(range.begin);
            cursor.setPosition(range.end, QTextCursor::KeepAnchor);
            cursor.mergeCharFormat(format);
        }
    }
}

// The pictures lie in the page itself.
QByteArray webPage(const EditorDocument& document, const std::vector<std::optional<rtf::Picture>>& pictures) {
    QString page = document.toHtml();
    for (std::size_t number = pictures.size(); number-- > 0;) {
        const std::optional<rtf::Picture>& picture = pictures[number];
        if (!picture)
            continue;
        const QString kind =
            picture->kind == rtf::PictureKind::Png ? QStringLiteral("png") : QStringLiteral("jpeg");
        const auto data = QByteArray::fromStdString(std::string(picture->bytes)).toBase64();
        page.replace(QStringLiteral("src=\"kept:%1\"").arg(number),
                     QStringLiteral("src=\"data:image/%1;base64,%2\"").arg(kind, QString::fromLatin1(data)));
    }
    return page.toUtf8();
}

} // namespace

std::string exportDocument(rtf::Document source, platform::ExportForm form, const QFont& font) {
    const auto document = documentOfRtf(std::move(source), font);
    const auto pictures = picturesOf(*document);
    useQtsTerms(*document, pictures);
    if (form == platform::ExportForm::Html)
        return webPage(*document, pictures).toStdString();
    useOlderTerms(*document);
    QBuffer buffer;
    QTextDocumentWriter writer(&buffer, "odf");
    if (!writer.write(document.get()))
        throw base::Failure(buffer.errorString().toStdString());
    return buffer.data().toStdString();
}

} // namespace desktop
