#include "desktop/text/load_document.h"

#include "base/failure.h"
#include "base/files.h"
#include "desktop/qt/conversions.h"
#include "desktop/text/layout_limits.h"
#include "desktop/text/rtf_bridge.h"
#include "desktop/text/text_units.h"
#include "platform/rich_text.h"
#include "rtf/read/reader.h"

#include <QStringDecoder>
#include <algorithm>
#include <filesystem>
#include <system_error>

namespace desktop {

namespace {

constexpr std::uintmax_t largestFile = 100'000'000; // bytes

[[noreturn]] void refuse(base::TextView path) {
    throw platform::TextTooLarge("The file is too large: " + base::toUtf8(path));
}

base::Text decodeUtf16(std::string_view bytes, std::size_t low, std::size_t high) {
    base::Text text(bytes.size() / 2, u'\0');
    for (std::size_t i = 0; i < text.size(); ++i)
        text[i] = static_cast<char16_t>(static_cast<unsigned char>(bytes[2 * i + low]) |
                                        static_cast<unsigned char>(bytes[2 * i + high]) << 8U);
    return text;
}

base::Text decode(std::string_view bytes, const base::CodePage& page) {
    if (bytes.starts_with("\xFF\xFE"))
        return decodeUtf16(bytes.substr(2), 0, 1);
    if (bytes.starts_with("\xFE\xFF"))
        return decodeUtf16(bytes.substr(2), 1, 0);
    // Text in a legacy code page is almost never valid UTF-8.
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = utf8(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    if (!utf8.hasError())
        return desktop::text(text);
    return base::decodeFile(bytes, page);
}

void breakPages(EditorDocument& document) {
    const QString units = document.toRawText();
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    for (qsizetype page = units.size(); (page = units.lastIndexOf(QChar(rtf::pageBreak), page - 1)) >= 0;) {
        cursor.setPosition(static_cast<int>(page));
        cursor.deleteChar();
        document.breakPageAt(cursor, cursor.charFormat());
        if (page == 0)
            break;
    }
    cursor.endEditBlock();
}

} // namespace

std::unique_ptr<EditorDocument> documentOfText(base::TextView text, const QFont& font) {
    auto document = std::make_unique<EditorDocument>(font);
    document->setPlainText(documentText(text));
    if (text.find(rtf::pageBreak) != base::TextView::npos)
        breakPages(*document);
    return document;
}

std::unique_ptr<EditorDocument> loadDocument(base::TextView path, const base::CodePage& page,
                                             const QFont& font) {
    std::error_code unknown;
    if (const auto size = std::filesystem::file_size(base::toUtf8(path), unknown);
        !unknown && size > largestFile)
        refuse(path);
    const std::string bytes = base::readFile(path);
    if (rtf::isRtf(bytes)) {
        rtf::Document source = rtf::read(bytes);
        if (cannotBeLaidOut(source))
            refuse(path);
        return documentOfRtf(std::move(source), font);
    }
    const base::Text text = decode(bytes, page);
    if (cannotBeLaidOut(text))
        refuse(path);
    return documentOfText(text, font);
}

} // namespace desktop
