#pragma once

#include "player/companions.h"
#include "player/form1.h"
#include "player/settings.h"
#include "player/step_targets.h"

namespace player {

// The commands for an open file: play/pause, stop, step back and forward. Also watches for the end of the
// media.
class Transport {
public:
    Transport(Form1& form, Settings& settings, Companions& companions, const StepTargets& targets);

    // Plays if the tag of cmdPlay is the word for play, otherwise pauses. Every pause steps back SecIndietro
    // seconds.
    void cmdPlay_Click();

    void cmdAvanz_Click();
    void cmdIndietro_Click();
    void mnuStop_Click();

    // Every 200 ms from the first play on: updates the wait pointer and detects the end of the media.
    void Timer4_Timer();

    // The parts of a pause, also used by the timed cycle: set the captions to play, stop the cycle's timer,
    // step back and pause.
    void offerPlay();
    void stopCycle();
    void stepBackAndPause();

private:
    void startPlaying();
    void pauseWithStepBack();
    void step(int direction);

    Form1& form_;
    Settings& settings_;
    Companions& companions_;
    const StepTargets& targets_;
    double heardFrom_ = 0; // seconds; where the playback began
};

} // namespace player
