#include "player/speed.h"

#include "base/numbers.h"

namespace player {

namespace {

constexpr double step = 0.1;
constexpr double upperTest = 4.9;  // limit for the current rate
constexpr double lowerLimit = 0.5; // limit for the resulting rate
constexpr std::size_t shownDigits = 4;

} // namespace

Speed::Speed(Form1& form) : form_(form) {
    form_.mnuAumentaVelocità.Click = [this] { mnuAumentaVelocità_Click(); };
    form_.mnuDiminuisciVelocità.Click = [this] { mnuDiminuisciVelocità_Click(); };
}

void Speed::mnuAumentaVelocità_Click() {
    form_.Label7.tag = u"1";
    const double rate = form_.WMP1.rate();
    if (rate < upperTest)
        form_.WMP1.setRate(rate + step);
    showRate();
}

void Speed::mnuDiminuisciVelocità_Click() {
    form_.Label7.tag = u"1";
    const double rate = form_.WMP1.rate();
    if (rate - step >= lowerLimit)
        form_.WMP1.setRate(rate - step);
    showRate();
}

void Speed::setRate(double factor) {
    form_.Label7.tag = u"1";
    form_.WMP1.setRate(factor);
    showRate();
}

void Speed::showRate() {
    form_.Label7.caption = base::numberText(form_.WMP1.rate()).substr(0, shownDigits) + u" x";
    form_.Label7.visible = true;
}

} // namespace player
