#pragma once

#include "editor/form2.h"
#include "platform/clipboard.h"

namespace editor {

// Copy, cut and paste through one clipboard in two forms: while the editor is in front it holds the RTF
// source of the last copy, for the editor's own paste, and behind any other window the plain text of it. The
// change of sides replaces whatever the clipboard holds. The tags of the two font boxes keep the two forms.
class ClipboardForms {
public:
    ClipboardForms(Form2& form, platform::Clipboard& clipboard);

    void Form_Load();
    void mnuCopia_Click();
    void mnuTaglia_Click();
    void mnuIncolla_Click();
    void Timer1_Timer();
    void RTB_LostFocus();

private:
    void copySelection();

    Form2& form_;
    platform::Clipboard& clipboard_;
    bool ClipRtfOn = false; // the clipboard is taken to hold the RTF form
};

} // namespace editor
