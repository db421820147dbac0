#pragma once

#include "app/desktop.h"
#include "editor/find_replace.h"
#include "editor/frm_find.h"
#include "editor/printing.h"

namespace app {

// What is done with the editor's text beside editing it: find and replace with its window, and printing.
class FindAndPrint {
public:
    FindAndPrint(Desktop& desktop, editor::Form2& editor);

    // At the end of the program: the window goes out of sight, and unloads itself a moment later.
    void leave();

private:
    editor::FrmFind frmFind_;
    editor::FindReplace findReplace_;
    editor::Printing printing_;
};

} // namespace app
