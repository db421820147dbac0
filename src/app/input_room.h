#pragma once

#include "app/desktop.h"
#include "dictation/form4.h"
#include "dictation/go_to.h"
#include "dictation/input_dialog.h"
#include "dictation/seconds_setting.h"

namespace app {

// The input dialog with the jobs that the player itself has for it. The order of the members is the order in
// which the dialog tests them; the last one takes whatever no other knows.
class InputRoom {
public:
    InputRoom(Desktop& desktop, player::Form1& form1, player::Preferences& preferences,
              platform::Options& options)
        : dialog(form4_, form1, desktop.dialogs()),
          secIndietro_(Setting::secIndietro, dialog, form1, preferences, options),
          goTo_(dialog, form1, options), tempoPlay_(Setting::tempoPlay, dialog, form1, preferences, options),
          tempoPause_(Setting::tempoPause, dialog, form1, preferences, options),
          secSalto_(Setting::secSalto, dialog, form1, preferences, options) {
        desktop.show(form4_);
    }

private:
    using Setting = dictation::SecondsSetting;

    dictation::Form4 form4_;

public:
    dictation::InputDialog dialog;

private:
    Setting secIndietro_;
    dictation::GoTo goTo_;
    Setting tempoPlay_;
    Setting tempoPause_;
    Setting secSalto_;
};

} // namespace app
