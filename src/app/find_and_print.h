#pragma once

#include "app/desktop.h"
#include "editor/find_replace.h"
#include "editor/frm_find.h"
#include "editor/printing.h"

namespace app {

// Commands that use the editor's text without editing it: find and replace with its window, and printing.
class FindAndPrint {
public:
    FindAndPrint(Desktop& desktop, editor::Form2& editor);

    // Called when the program ends: hides the window, which unloads itself a moment later.
    void leave();

    editor::Printing& printing() { return printing_; }

private:
    editor::FrmFind frmFind_;
    editor::FindReplace findReplace_;
    editor::Printing printing_;
};

} // namespace app
