#pragma once

#include "platform/dialogs.h"
#include "platform/settings_store.h"
#include "player/form1.h"
#include "player/transport.h"

namespace dictation {

// The mode that turns the player into a dictation machine. Its state is the check mark of mnuSmartPlay. The
// two ways of turning it on differ on purpose: the menu explains the mode and leaves the player alone, the
// button starts playback. Only starting playback arms the cycle.
class SmartPlay {
public:
    SmartPlay(player::Form1& form, player::Transport& transport, platform::Dialogs& dialogs,
              platform::SettingsStore& store);

    void mnuSmartPlay_Click();
    void imgDetta_Click();
    void mnuNoPlayOnWrite_Click();
    // The user has stopped typing.
    void Timer6_Timer();

private:
    void turnOff();
    void turnOn();

    player::Form1& form_;
    player::Transport& transport_;
    platform::Dialogs& dialogs_;
    platform::SettingsStore& store_;
};

} // namespace dictation
