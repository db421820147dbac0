#pragma once

#include "dictation/input_dialog.h"
#include "platform/settings_store.h"
#include "player/form1.h"

namespace dictation {

// Jumps to a position in the media that the user enters in seconds.
class GoTo {
public:
    GoTo(InputDialog& dialog, player::Form1& form, platform::SettingsStore& store);

    void mnuVai_Click();

private:
    void go();

    InputDialog& dialog_;
    player::Form1& form_;
    platform::SettingsStore& store_;
};

} // namespace dictation
