#pragma once

#include "desktop/views/form_window.h"
#include "editor/frm_find.h"

namespace desktop {

// Shows find and replace: a small window over all others.
class FrmFindWindow : public FormWindow {
public:
    explicit FrmFindWindow(editor::FrmFind& form);
};

} // namespace desktop
