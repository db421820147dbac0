#pragma once

#include "player/companions.h"
#include "player/form1.h"
#include "player/settings.h"
#include "player/transport.h"

namespace dictation {

// The cycle of smart play: TempoPlay seconds of play, a step back and TempoPause seconds of pause, and on.
// The phase is not kept anywhere: the run state of the player tells it. Phases are wall-clock seconds,
// whatever the speed.
class TimedCycle {
public:
    TimedCycle(player::Form1& form, player::Transport& transport, player::Settings& settings,
               player::Companions& companions);

    // The end of a phase. While the user types, either phase goes on instead.
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
