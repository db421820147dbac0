#pragma once

#include "editor/form2.h"
#include "platform/clipboard.h"

#include <string>

namespace editor {

// Copy, cut and paste through one clipboard in two forms. While the editor is in front, the clipboard holds
// the RTF source of the last copy, for the editor's own paste; while another window is in front, its plain
// text. Each switch overwrites the clipboard, whatever it holds. The tags of the two font boxes store the two
// forms. What stands beside the letters goes along in a form of its own.
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
    std::string beside_;    // what stands beside the letters that were copied last
    bool ClipRtfOn = false; // the clipboard is assumed to hold the RTF form
};

} // namespace editor
