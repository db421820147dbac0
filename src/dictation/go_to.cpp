#include "dictation/go_to.h"

#include "base/numbers.h"

namespace dictation {

GoTo::GoTo(InputDialog& dialog, player::Form1& form, platform::SettingsStore& store)
    : dialog_(dialog), form_(form), store_(store) {
    form_.mnuVai.Click = [this] { mnuVai_Click(); };
    InputJob job;
    job.isAsked = [this] { return dialog_.form().caption.get() == form_.Lingua(39); };
    job.accept = [this] {
        go();
        return true;
    };
    dialog_.add(std::move(job));
}

void GoTo::mnuVai_Click() {
    dialog_.ask(form_, form_.Lingua(39), form_.Lingua(38));
}

void GoTo::go() {
    form_.WMP1.setCurrentPosition(base::val(dialog_.form().Text1.text.get()));
    // A player at rest pauses, and so steps back; a running one plays on.
    if (form_.cmdPlay.tag.get() == form_.Lingua(7)) {
        form_.cmdPlay.tag = form_.Lingua(8);
        form_.cmdPlay.Click();
    }
    form_.Timer1.Tick();
    store_.Salva();
}

} // namespace dictation
