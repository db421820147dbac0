#include "player/transport.h"

#include "base/carry_on.h"
#include "base/numbers.h"

namespace player {

namespace {

constexpr int watchPeriod = 200; // ms
constexpr std::int16_t msPerSecond = 1000;
constexpr std::int16_t leastStep = 2; // seconds; used if no step was ever set

} // namespace

Transport::Transport(Form1& form, Settings& settings, Companions& companions, const StepTargets& targets)
    : form_(form), settings_(settings), companions_(companions), targets_(targets) {
    form_.cmdPlay.Click = form_.mnuPlay.Click = [this] { cmdPlay_Click(); };
    form_.cmdAvanz.Click = form_.mnuAvanti.Click = [this] { cmdAvanz_Click(); };
    form_.cmdIndietro.Click = form_.mnuIndietro.Click = [this] { cmdIndietro_Click(); };
    form_.cmdStop.Click = form_.mnuStop.Click = [this] { mnuStop_Click(); };
    form_.Timer4.Tick = [this] { Timer4_Timer(); };
}

void Transport::cmdPlay_Click() {
    if (form_.cmdPlay.tag.get() == form_.Lingua(7))
        startPlaying();
    else
        pauseWithStepBack();
    form_.FlagHoverSkin = 0;
    companions_.TornaAllEditor();
}

void Transport::startPlaying() {
    form_.cmdPlay.tag = form_.Lingua(8);
    form_.mnuPlay.caption = form_.Lingua(8);
    heardFrom_ = form_.WMP1.currentPosition();
    if (heardFrom_ == 0)
        form_.WMP1.pause();
    form_.WMP1.play();
    form_.Timer1.setInterval(Form1::displayPeriod);
    form_.Timer4.setInterval(watchPeriod);
    if (form_.mnuSmartPlay.checked) {
        // The period is a 16-bit number: 33 s or more overflows, and the previous period stays.
        base::carryOn(
            [&] { form_.Timer5.setInterval(base::productInt16(settings_.TempoPlay, msPerSecond)); });
        form_.Timer5.setEnabled(true);
    } else {
        stopCycle();
    }
    form_.cmdIndietro.enabled = true;
    form_.cmdAvanz.enabled = true;
    form_.Shape1.visible = true;
    if (form_.HoverPlay == 0)
        form_.load(form_.cmdPlay, u"pause.jpg");
}

void Transport::pauseWithStepBack() {
    offerPlay();
    stopCycle();
    stepBackAndPause();
}

void Transport::offerPlay() {
    form_.cmdPlay.tag = form_.Lingua(7);
    form_.mnuPlay.caption = form_.Lingua(7);
}

void Transport::stopCycle() {
    form_.Timer5.setInterval(0);
    form_.Timer5.setEnabled(false);
}

void Transport::stepBackAndPause() {
    const double from = form_.WMP1.currentPosition();
    form_.WMP1.setCurrentPosition(targets_.targetOf(from, from - settings_.SecIndietro, heardFrom_));
    form_.WMP1.pause();
    if (form_.HoverPlay == 0 && form_.Label4.visible)
        form_.load(form_.cmdPlay, u"play.jpg");
}

void Transport::cmdAvanz_Click() {
    step(+1);
}

void Transport::cmdIndietro_Click() {
    step(-1);
}

void Transport::step(int direction) {
    if (settings_.SecSalto == 0)
        settings_.SecSalto = leastStep;
    const double from = form_.WMP1.currentPosition();
    const double to = from + direction * settings_.SecSalto;
    form_.WMP1.setCurrentPosition(direction < 0 ? targets_.targetOf(from, to, std::nullopt) : to);
    form_.Timer1.Tick();
    companions_.TornaAllEditor();
}

void Transport::mnuStop_Click() {
    form_.Timer1.Tick();
    form_.Timer1.setInterval(0);
    form_.WMP1.stop();
    form_.Label2.caption = u"0:00 / " + base::replaced(form_.WMP1.durationString(), u".", u":");
    form_.cmdPlay.tag = form_.Lingua(7);
    form_.load(form_.cmdPlay, u"play.jpg");
    // A stop always turns smart play off: with the check mark set, the button's routine turns it off.
    form_.mnuSmartPlay.checked = true;
    form_.imgDetta.Click();
}

void Transport::Timer4_Timer() {
    const platform::PlayState state = form_.WMP1.playState();
    form_.screen.mousePointer = state == platform::PlayState::Transitioning ? controls::Pointer::Hourglass
                                                                            : controls::Pointer::Default;
    if (state == platform::PlayState::Stopped) {
        mnuStop_Click();
        form_.Timer4.setInterval(0);
    }
}

} // namespace player
