#include "dictation/seconds_setting.h"

#include "base/carry_on.h"
#include "base/numbers.h"

namespace dictation {

using player::Form1Menu;
using player::Settings;
using KnownBy = SecondsKind::KnownBy;

// A pause of 1 or 2 s lasts until the program ends; the next start considers it too short and sets 7. The
// numbers in the prompts are suggestions, not the limits.
const SecondsKind SecondsSetting::secIndietro{
    &Settings::SecIndietro, &Form1Menu::mnuSecIndietro, 0, 0, 20, 32, 31, {}, KnownBy::Caption};
const SecondsKind SecondsSetting::secSalto{&Settings::SecSalto, &Form1Menu::mnuSalto, 2, 1, 60, 35, 34, {},
                                           KnownBy::NothingElse};
const SecondsKind SecondsSetting::tempoPlay{
    &Settings::TempoPlay, &Form1Menu::mnuTempoPlay, 3, 3, 20, 124, 125, u"5", KnownBy::PromptBeginning};
const SecondsKind SecondsSetting::tempoPause{
    &Settings::TempoPause, &Form1Menu::mnuTempoPause, 1, 1, 20, 124, 126, u"3", KnownBy::PromptBeginning};

SecondsSetting::SecondsSetting(const SecondsKind& kind, InputDialog& dialog, player::Form1& form,
                               player::Settings& settings, platform::SettingsStore& store)
    : kind_(kind), dialog_(dialog), form_(form), settings_(settings), store_(store) {
    (form_.*kind_.command).Click = [this] { command_Click(); };
    InputJob job;
    job.isAsked = [this] { return isAsked(); };
    job.accept = [this] {
        accept();
        return true;
    };
    dialog_.add(std::move(job));
}

void SecondsSetting::command_Click() {
    if (seconds() < kind_.floor)
        seconds() = kind_.floor;
    base::Text prompt = form_.Lingua(kind_.prompt);
    if (!kind_.proposal.empty())
        prompt += u" " + base::replaced(form_.Lingua(128), u"nnn", kind_.proposal);
    dialog_.ask(form_, form_.Lingua(kind_.caption), prompt, base::numberText(seconds()));
}

bool SecondsSetting::isAsked() const {
    switch (kind_.knownBy) {
    case KnownBy::Caption:
        return dialog_.form().caption.get() == form_.Lingua(kind_.caption);
    case KnownBy::PromptBeginning:
        return dialog_.form().Label1.caption->starts_with(form_.Lingua(kind_.prompt));
    case KnownBy::NothingElse:
        break;
    }
    return true;
}

void SecondsSetting::accept() {
    const auto bound = [](std::int16_t limit) { return u" " + base::numberText(limit) + u"."; };
    base::carryOn([&] { seconds() = base::toInt16(base::val(dialog_.form().Text1.text.get())); });
    if (seconds() < kind_.least) {
        dialog_.warn(form_.Lingua(40) + bound(kind_.least));
        seconds() = kind_.least;
    }
    if (seconds() > kind_.most) {
        dialog_.warn(form_.Lingua(33) + bound(kind_.most));
        seconds() = kind_.most;
    }
    store_.Salva();
}

} // namespace dictation
