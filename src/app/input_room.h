#pragma once

#include "app/desktop.h"
#include "dictation/go_to.h"
#include "dictation/input_dialog.h"
#include "dictation/seconds_setting.h"

namespace app {

// The one input dialog, shared by all rooms that need it.
class InputRoom {
public:
    InputRoom(Desktop& desktop, player::Form1& form1) : dialog(form4_, form1, desktop.dialogs()) {
        desktop.show(form4_);
    }

private:
    dictation::Form4 form4_;

public:
    dictation::InputDialog dialog;
};

// The dictation room's own jobs for the dialog, in the order in which the dialog tests them. The last one
// accepts whatever no other job recognises.
class InputJobs {
public:
    InputJobs(dictation::InputDialog& dialog, player::Form1& form1, player::Settings& settings,
              platform::SettingsStore& store)
        : secIndietro_(Setting::secIndietro, dialog, form1, settings, store), goTo_(dialog, form1, store),
          tempoPlay_(Setting::tempoPlay, dialog, form1, settings, store),
          tempoPause_(Setting::tempoPause, dialog, form1, settings, store),
          secSalto_(Setting::secSalto, dialog, form1, settings, store) {}

private:
    using Setting = dictation::SecondsSetting;

    Setting secIndietro_;
    dictation::GoTo goTo_;
    Setting tempoPlay_;
    Setting tempoPause_;
    Setting secSalto_;
};

} // namespace app
