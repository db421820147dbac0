#pragma once

#include "editor/form2.h"
#include "editor/frm_find.h"
#include "platform/dialogs.h"

namespace editor {

// Find and replace in the editor's text. The caption of the find button stores whether the next search starts
// at the top, the caption of the replace button whether a press replaces or only finds.
class FindReplace {
public:
    FindReplace(FrmFind& form, Form2& editor, platform::Dialogs& dialogs);

    // Called once, before the window is first loaded, to create it on the screen.
    std::function<void()> Load = [] {};

    // Show the window for find or for replace. While loaded, it keeps the form in which it was first shown.
    void mnuTrova_Click();
    void mnuSostituisci_Click();

    void Form_Load();
    void cboFind_Click();
    void cboFind_OLEDragDrop(base::TextView dropped);
    void cboReplace_OLEDragDrop(base::TextView dropped);
    void cmdFind_Click();
    void cmdReplace_Click();
    void cmdReplaceAll_Click();
    void cmdCancel_Click();
    void Timer1_Timer();

private:
    void show(base::TextView use);
    void writeCaptions();
    void StoriaFind();
    void StoriaReplace();
    int options() const;
    void find();
    void replace();
    void replaceHit(int options);
    template <typename Routine>
    void reportingFailure(Routine&& routine);
    void report(base::TextView message, platform::BoxStyle style);
    base::Text findCaption() const;

    FrmFind& form_;
    Form2& editor_;
    platform::Dialogs& dialogs_;
    const lang::LanguageTable& Lingua;

    bool loaded_ = false;
    bool TagliatoCrLf =
        false; // the text to find was cut at a line break, which the next replacement restores
    std::int32_t ContaSostituzioni = 0;
};

} // namespace editor
