#pragma once

#include "platform/dialogs.h"

#include <QWidget>

namespace desktop {

// Message boxes, file dialogs and colour dialogs, all on Qt's own.
class QtDialogs : public platform::Dialogs {
public:
    platform::Answer messageBox(base::TextView text, base::TextView title, platform::BoxStyle style) override;
    std::unique_ptr<platform::Progress> showProgress(base::TextView text, base::TextView title,
                                                     std::function<void()> cancelled) override;
    std::optional<std::uint32_t> ShowColor(std::string_view owner, std::uint32_t start) override;
    base::Text FileDlg(const platform::FileDialogRequest& request) override;

private:
    // The top-level window with this object name; null if there is none.
    static QWidget* window(std::string_view name);
};

} // namespace desktop
