#pragma once

#include "dictation/input_dialog.h"
#include "platform/options.h"
#include "player/form1.h"

namespace dictation {

// Goes to a place of the media that the user gives in seconds.
class GoTo {
public:
    GoTo(InputDialog& dialog, player::Form1& form, platform::Options& options);

    void mnuVai_Click();

private:
    void go();

    InputDialog& dialog_;
    player::Form1& form_;
    platform::Options& options_;
};

} // namespace dictation
