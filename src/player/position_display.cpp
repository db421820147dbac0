#include "player/position_display.h"

#include <cmath>

namespace player {

namespace {

constexpr double largeTitle = 14;  // points
constexpr double mediumTitle = 11; // points
constexpr double smallTitle = 9;   // points

// Some locales separate minutes and seconds with a point.
base::Text withColons(base::TextView time) {
    return base::replaced(time, u".", u":");
}

} // namespace

PositionDisplay::PositionDisplay(Form1& form) : form_(form) {
    form_.Timer1.Tick = [this] { Timer1_Timer(); };
}

void PositionDisplay::Timer1_Timer() {
    if (form_.HoverPlay == 1)
        form_.load(form_.cmdPlay, u"pause.jpg");
    form_.Label4.caption = title();
    const double position = form_.WMP1.currentPosition();
    if (position > 0) {
        form_.Label2.caption =
            withColons(form_.WMP1.currentPositionString()) + u" / " + withColons(form_.WMP1.durationString());
        const double duration = form_.WMP1.duration();
        if (duration > 0)
            form_.Shape1.width = std::floor(form_.Label2.width / duration * position);
    } else {
        form_.Shape1.width = 0;
        if (form_.HoverPlay == 0)
            form_.load(form_.cmdPlay, u"play.jpg");
        showStart();
    }
}

void PositionDisplay::MostraPath() {
    form_.Label4.caption = title();
    const std::size_t length = form_.Label4.caption->size();
    form_.Label4.fontSize = length < 21 ? largeTitle : length < 45 ? mediumTitle : smallTitle;
}

void PositionDisplay::showStart() {
    form_.Label2.caption = u"0:00 / " + withColons(form_.WMP1.durationString());
}

base::Text PositionDisplay::title() const {
    const base::Text& path = form_.Label4.tag;
    return base::doubledAmp(form_.mnuTitoloCompleto.checked ? base::TextView(path)
                                                            : base::afterLast(path, base::pathSeparator));
}

} // namespace player
