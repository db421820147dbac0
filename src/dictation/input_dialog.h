#pragma once

#include "dictation/form4.h"
#include "platform/dialogs.h"
#include "player/form1.h"

#include <functional>
#include <vector>

namespace dictation {

// One job of the input dialog, kept by the room whose subject it is.
struct InputJob {
    std::function<bool()> isAsked; // caption and prompt of the dialog are those of this job
    std::function<bool()> accept;  // the user pressed OK; true: the dialog may go
    bool takesBlankText = false;   // otherwise a blank text closes the dialog and changes nothing
};

// The routines of Form4. It knows none of its jobs: the first one that knows its own caption or prompt gets
// the text. Jobs that take a blank text are tested before the text, all others behind it, each in the order
// in which they were added.
class InputDialog {
public:
    InputDialog(Form4& form, player::Form1& form1, platform::Dialogs& dialogs);

    void add(InputJob job) { jobs_.push_back(std::move(job)); }

    // Opens the dialog over all windows with the icon of `caller`, with `value` selected, and returns when it
    // has gone. Nothing happens while it is open already. The "&" of the texts are left out.
    void ask(const controls::Window& caller, base::TextView caption, base::TextView prompt,
             base::TextView value = {});

    // A warning under the usual title, its "&" left out.
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
