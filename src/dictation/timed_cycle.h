#pragma once

#include "player/companions.h"
#include "player/form1.h"
#include "player/settings.h"
#include "player/transport.h"

namespace dictation {

// The cycle of smart play: TempoPlay seconds of playback, a step back, TempoPause seconds of pause, repeated.
// The phase is not stored: it follows from the player's run state. Phases last wall-clock seconds at any
// speed.
class TimedCycle {
public:
    TimedCycle(player::Form1& form, player::Transport& transport, player::Settings& settings,
               player::Companions& companions);

    // Ends a phase. While the user types, the current phase is extended instead.
    void Timer5_Timer();

private:
    void beginPause();
    void end();

    player::Form1& form_;
    player::Transport& transport_;
    player::Settings& settings_;
    player::Companions& companions_;
};

} // namespace dictation
