#pragma once

#include "desktop/clipboard/x_selection.h"
#include "platform/clipboard.h"

#include <QClipboard>

namespace desktop {

// The MIME types under which programs offer RTF; this program offers the first.
const QList<QByteArray>& rtfForms();

// The form of what stands beside the letters of this program's text. No other program reads it.
inline constexpr auto besideForm = "application/x-quillmere-beside";

// A clipboard of the desktop. Writes through Qt, but reads other programs' data directly from the X server:
// through Qt, a hanging owner would freeze this program too.
class QtClipboard : public platform::Clipboard {
public:
    // `mode`: the clipboard, or the primary selection that the middle button pastes.
    explicit QtClipboard(QClipboard::Mode mode);

    void Clear() override;
    using platform::Clipboard::SetText;
    void SetText(base::TextView text, std::string_view beside) override;
    base::Text GetText(platform::ClipboardFormat format) override;
    std::string Beside() override;

private:
    std::optional<XSelection::Held> read(const QList<QByteArray>& forms, qsizetype limit);

    QClipboard::Mode mode_;
    XSelection selection_;
};

} // namespace desktop
