#pragma once

#include "player/companions.h"
#include "player/form1.h"
#include "player/settings.h"

namespace player {

// The commands on an open file: play and pause on one toggle, stop, one step back or forward; and the watch
// that notices the end of the media.
class Transport {
public:
    Transport(Form1& form, Settings& settings, Companions& companions);

    // Plays when the tag of cmdPlay is the word for play, else pauses. Every pause steps back SecIndietro
    // seconds.
    void cmdPlay_Click();

    void cmdAvanz_Click();
    void cmdIndietro_Click();
    void mnuStop_Click();

    // Every 200 ms from the first play on: the pointer that waits, and the end of the media.
    void Timer4_Timer();

    // What a pause is made of, for pauses that the timed cycle begins: the words for play, the cycle's timer
    // off, and the step back with the pause behind it.
    void offerPlay();
    void stopCycle();
    void stepBackAndPause();

private:
    void startPlaying();
    void holdWithStepBack();
    void step(int direction);

    Form1& form_;
    Settings& settings_;
    Companions& companions_;
};

} // namespace player
