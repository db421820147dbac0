#pragma once

#include "dictation/form4.h"
#include "platform/dialogs.h"
#include "player/form1.h"

#include <functional>
#include <vector>

namespace dictation {

// One job of the input dialog, defined by the room that needs it.
struct InputJob {
    std::function<bool()> isAsked; // the dialog's caption and prompt belong to this job
    std::function<bool()> accept;  // the user pressed OK; returns true to close the dialog
    bool takesBlankText = false;   // otherwise blank text closes the dialog and changes nothing
};

// The routines of Form4. They know no job: the first job that recognises its caption or prompt receives the
// text. Jobs that accept blank text are tested before all others; within each group the order of add counts.
class InputDialog {
public:
    InputDialog(Form4& form, player::Form1& form1, platform::Dialogs& dialogs);

    void add(InputJob job) { jobs_.push_back(std::move(job)); }

    // Opens the dialog with the icon of `caller` and with `value` selected, and returns when it has closed.
    // Does nothing while it is already open. "&" is removed from the texts.
    void ask(const controls::Window& caller, base::TextView caption, base::TextView prompt,
             base::TextView value = {});

    // Shows a warning under the program's usual title, without "&".
    void warn(base::TextView text);

    void Command1_Click();
    void Command2_Click();

    const Form4& form() const { return form_; }

private:
    void Form_Load();
    void unload();

    Form4& form_;
    player::Form1& form1_;
    platform::Dialogs& dialogs_;
    std::vector<InputJob> jobs_;
};

} // namespace dictation
