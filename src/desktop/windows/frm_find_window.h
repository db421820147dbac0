#pragma once

#include "desktop/views/form_window.h"
#include "editor/frm_find.h"

namespace desktop {

// Shows the find and replace dialog, which stays above all other windows.
class FrmFindWindow : public FormWindow {
public:
    explicit FrmFindWindow(editor::FrmFind& form);
};

} // namespace desktop
