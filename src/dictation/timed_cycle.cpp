#include "dictation/timed_cycle.h"

#include "base/carry_on.h"
#include "base/numbers.h"

namespace dictation {

namespace {

constexpr std::int16_t msPerSecond = 1000;

} // namespace

TimedCycle::TimedCycle(player::Form1& form, player::Transport& transport, player::Settings& settings,
                       player::Companions& companions)
    : form_(form), transport_(transport), settings_(settings), companions_(companions) {
    form_.Timer5.Tick = [this] { Timer5_Timer(); };
}

void TimedCycle::Timer5_Timer() {
    if (!form_.cmdPlay.enabled)
        end();
    else if (form_.mnuNoPlayOnWrite.checked && form_.Timer6.interval() != 0)
        form_.Timer5.setInterval(form_.Timer6.interval());
    else if (form_.cmdPlay.tag.get() != form_.Lingua(7))
        beginPause();
    else
        transport_.cmdPlay_Click();
}

// The recording was closed during a phase, so there is nothing to pause or resume.
void TimedCycle::end() {
    transport_.offerPlay();
    transport_.stopCycle();
}

void TimedCycle::beginPause() {
    transport_.offerPlay();
    // Set before stepping back and pausing, so that the phase has its full length. A period of 33 s or more
    // overflows its 16 bits, and the previous one stays.
    base::carryOn([&] { form_.Timer5.setInterval(base::productInt16(settings_.TempoPause, msPerSecond)); });
    transport_.stepBackAndPause();
    companions_.TornaAllEditor();
}

} // namespace dictation
