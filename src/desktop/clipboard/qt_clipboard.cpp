#include "desktop/clipboard/qt_clipboard.h"

#include "desktop/clipboard/rtf_source.h"
#include "desktop/qt/conversions.h"

#include <QGuiApplication>
#include <QMimeData>
#include <QStringDecoder>
#include <QTextDocumentFragment>

namespace desktop {

namespace {

constexpr qsizetype largestOffer = 2'000'000'000; // bytes: positions in a document have 32 bits
constexpr qsizetype largestHtml = 2'000'000;      // bytes; Qt parses HTML slowly

constexpr auto htmlForm = "text/html";

QClipboard& clipboard() {
    return *QGuiApplication::clipboard();
}

// False on the offscreen platform, for example. There, either this program owns the clipboard or Qt does not
// wait for the owner.
bool onX11() {
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 && x11->connection();
}

QString decoded(const QByteArray& bytes) {
    const bool isWide = bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF");
    QStringDecoder decoder(isWide ? QStringDecoder::Utf16 : QStringDecoder::Utf8);
    return decoder(bytes);
}

// RTF may contain bytes of a code page; they are escaped, as a text has no room for raw bytes.
base::Text asciiSource(const QByteArray& bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    base::Text source;
    source.reserve(static_cast<std::size_t>(bytes.size()));
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        if (value == 0)
            continue;
        if (value < 0x80)
            source += static_cast<char16_t>(value);
        else
            (source += u"\\'") +=
                {static_cast<char16_t>(digits[value / 16]), static_cast<char16_t>(digits[value % 16])};
    }
    return source;
}

// Best format first.
const QList<QByteArray>& textForms() {
    static const QList<QByteArray> forms{"text/plain;charset=utf-8", "UTF8_STRING", "text/plain", "STRING",
                                         htmlForm};
    return forms;
}

// Decodes the bytes of one of these formats.
base::Text textOf(const XSelection::Held& held) {
    if (held.form == "STRING")
        return text(QString::fromLatin1(held.bytes));
    if (held.form != htmlForm)
        return text(decoded(held.bytes));
    if (held.bytes.size() > largestHtml)
        return {};
    return text(QTextDocumentFragment::fromHtml(decoded(held.bytes)).toPlainText());
}

} // namespace

const QList<QByteArray>& rtfForms() {
    static const QList<QByteArray> forms{"text/rtf", "application/rtf", "text/richtext"};
    return forms;
}

QtClipboard::QtClipboard(QClipboard::Mode mode)
    : mode_(mode), selection_(mode == QClipboard::Selection ? "PRIMARY" : "CLIPBOARD") {}

void QtClipboard::Clear() {
    clipboard().clear(mode_);
}

void QtClipboard::SetText(base::TextView text, std::string_view beside) {
    auto* const offer = new QMimeData; // Qt's clipboard owns it
    offer->setText(qstring(text));
    if (!beside.empty())
        offer->setData(QString::fromLatin1(besideForm),
                       QByteArray(beside.data(), static_cast<qsizetype>(beside.size())));
    clipboard().setMimeData(offer, mode_);
}

std::string QtClipboard::Beside() {
    const auto held = read({besideForm}, largestOffer);
    return held ? held->bytes.toStdString() : std::string();
}

std::optional<XSelection::Held> QtClipboard::read(const QList<QByteArray>& forms, qsizetype limit) {
    const bool own =
        mode_ == QClipboard::Selection ? clipboard().ownsSelection() : clipboard().ownsClipboard();
    if (onX11() && !own)
        return selection_.read(forms, limit);
    const QMimeData* const offer = clipboard().mimeData(mode_);
    for (const QByteArray& form : forms) {
        if (offer && offer->hasFormat(QString::fromLatin1(form)))
            return XSelection::Held{form, offer->data(QString::fromLatin1(form))};
    }
    return std::nullopt;
}

base::Text QtClipboard::GetText(platform::ClipboardFormat format) {
    const bool wantsRtf = format == platform::ClipboardFormat::Rtf;
    const auto held = read(wantsRtf ? rtfForms() : textForms(), largestOffer);
    if (!held)
        return {};
    if (!wantsRtf)
        return textOf(*held);
    base::Text source = asciiSource(held->bytes);
    return isRtfSource(source) ? source : base::Text();
}

} // namespace desktop
