#pragma once

#include "desktop/clipboard/x_selection.h"
#include "platform/clipboard.h"

#include <QClipboard>

namespace desktop {

// The names under which programs offer RTF; the first is this program's own.
const QList<QByteArray>& rtfForms();

// A clipboard of the desktop. It is written through Qt; what another program holds is read past Qt, which
// would freeze the program for as long as that one hangs.
class QtClipboard : public platform::Clipboard {
public:
    // The clipboard of copy and paste, or the selection that the middle button pastes.
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
