#pragma once

#include "desktop/clipboard/x_selection.h"
#include "platform/clipboard.h"

#include <QClipboard>

namespace desktop {

// The MIME types under which programs offer RTF; this program offers the first.
const QList<QByteArray>& rtfForms();

// A clipboard of the desktop. Writes through Qt, but reads other programs' data directly from the X server:
// through Qt, a hanging owner would freeze this program too.
class QtClipboard : public platform::Clipboard {
public:
    // `mode`: the clipboard, or the primary selection that the middle button pastes.
    explicit QtClipboard(QClipboard::Mode mode);

    void Clear() override;
    void SetText(base::TextView text) override;
    base::Text GetText(platform::ClipboardFormat format) override;

private:
    std::optional<XSelection::Held> read(const QList<QByteArray>& forms, qsizetype limit);

    QClipboard::Mode mode_;
    XSelection selection_;
};

} // namespace desktop
