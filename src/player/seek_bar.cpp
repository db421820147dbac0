#include "player/seek_bar.h"

#include <cmath>

namespace player {

SeekBar::SeekBar(Form1& form, Transport& transport) : form_(form), transport_(transport) {
    form_.Label2.MouseUp = [this](const auto& event) { Label2_MouseUp(event); };
}

void SeekBar::Label2_MouseUp(const controls::MouseEvent& event) {
    if (form_.WMP1.URL().empty())
        return;
    form_.WMP1.setCurrentPosition(std::floor(form_.WMP1.duration() / form_.Label2.width * event.x));
    form_.WMP1.play();
    if (form_.cmdPlay.tag.get() == form_.Lingua(7)) {
        form_.cmdPlay.tag = form_.Lingua(8);
        transport_.cmdPlay_Click();
    }
    form_.Timer1.Tick();
}

void SeekBar::setPosition(double seconds) {
    if (form_.WMP1.URL().empty())
        return;
    form_.WMP1.setCurrentPosition(seconds);
    form_.Timer1.Tick();
}

} // namespace player
