#include "dictation/input_dialog.h"

namespace dictation {

InputDialog::InputDialog(Form4& form, player::Form1& form1, platform::Dialogs& dialogs)
    : form_(form), form1_(form1), dialogs_(dialogs) {
    form_.Command1.Click = [this] { Command1_Click(); };
    form_.Command2.Click = [this] { Command2_Click(); };
    form_.Unload = [this] {
        unload();
        return false;
    };
}

void InputDialog::ask(const controls::Window& caller, base::TextView caption, base::TextView prompt,
                      base::TextView value) {
    if (form_.visible)
        return;
    Form_Load();
    form_.icon = caller.icon.get();
    form_.caption = base::TogliAmp(caption);
    form_.Label1.caption = base::TogliAmp(prompt);
    form_.Text1.text = base::Text(value);
    form_.Text1.selLength = static_cast<int>(value.size());
    form_.showModal();
}

void InputDialog::Form_Load() {
    form_.Load();
    form_.Image1.picture = form1_.Shape3.picture.get();
    form_.Command1.caption = form1_.Lingua(20);
    form_.Command2.caption = form1_.Lingua(21);
    form_.left = (form1_.screen.width - form_.width) / 2;
    form_.top = (form1_.screen.height - form_.height) / 2;
    form_.Text1.text = base::Text();
    form_.Text1.selStart = 0;
    form_.Text1.selLength = 0;
}

void InputDialog::unload() {
    form_.visible = false;
}

void InputDialog::warn(base::TextView text) {
    dialogs_.messageBox(base::TogliAmp(text), base::TogliAmp(form1_.Lingua(1)),
                        platform::BoxStyle::Exclamation);
}

void InputDialog::Command1_Click() {
    const bool blank = base::trimmed(form_.Text1.text.get()).empty();
    for (const bool takesBlankText : {true, false}) {
        if (!takesBlankText && blank)
            break;
        for (const InputJob& job : jobs_) {
            if (job.takesBlankText != takesBlankText || !job.isAsked())
                continue;
            if (job.accept())
                unload();
            return;
        }
    }
    unload();
}

void InputDialog::Command2_Click() {
    unload();
}

} // namespace dictation
