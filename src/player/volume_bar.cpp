#include "player/volume_bar.h"

#include "base/carry_on.h"
#include "base/numbers.h"

#include <algorithm>
#include <cmath>

namespace player {

namespace {

constexpr int dragPeriod = 10;  // ms
constexpr int fadePeriod = 100; // ms
constexpr std::int16_t fadeAtRest = -15;
constexpr std::int16_t fadeStep = 15;
constexpr std::int16_t fadeEnd = 255;
constexpr double barTop = 350;     // twips; about the top of the bar
constexpr double dragAbove = 1.35; // how far above the bar a drag may aim, in thumb heights
constexpr int leftButton = 1;
constexpr controls::Color red = controls::rgb(255, 0, 0);

} // namespace

VolumeBar::VolumeBar(Form1& form, Companions& companions) : form_(form), companions_(companions) {
    form_.Image2.MouseUp = [this](const auto& event) { Image2_MouseUp(event); };
    form_.Image1.MouseDown = [this](const auto& event) { Image1_MouseDown(event); };
    form_.Image1.MouseMove = [this](const auto& event) { Image1_MouseMove(event); };
    form_.Image1.MouseUp = [this](const auto& event) { Image1_MouseUp(event); };
    form_.Timer2.Tick = [this] { Timer2_Timer(); };
    form_.Timer3.Tick = [this] { Timer3_Timer(); };
}

void VolumeBar::IniziaVolume() {
    form_.Timer2.setEnabled(false);
    form_.Timer2.setInterval(dragPeriod);
    form_.Image1.top = (form_.Image2.height - form_.Image1.height) / 2 + form_.Image2.top;
    form_.Image1.left = form_.Image2.width / 2 - form_.Image1.width / 2 + form_.Image2.left;
    readThumb();
}

void VolumeBar::readThumb() {
    const double fromTop = (form_.Image1.top - form_.Image2.top) * VolumeMax_;
    const double volume =
        std::abs(std::floor(fromTop / (form_.Image2.height - form_.Image1.height)) - VolumeMax_);
    form_.Image1.tag = base::numberText(volume);
}

void VolumeBar::ApplicaVolume() {
    VolumeCorrente_ =
        static_cast<std::int32_t>(std::clamp(std::nearbyint(base::val(form_.Image1.tag.get())), -1e9, 1e9));
    std::int16_t percent = 0;
    base::carryOn([&] { percent = base::toInt16(std::floor(double(VolumeCorrente_) / VolumeMax_ * 100)); });
    percent = std::clamp<std::int16_t>(percent, 0, 100);
    form_.Label5.caption = u" " + base::numberText(percent) + u"%";
    form_.WMP1.setVolume(percent);
}

void VolumeBar::setVolume(double percent) {
    VolumeMax_ = 100;
    form_.Image1.top =
        form_.Image2.top + (1 - percent / VolumeMax_) * (form_.Image2.height - form_.Image1.height);
    form_.Image1.tag = base::numberText(std::nearbyint(percent));
    ApplicaVolume();
    startFade();
    form_.Timer3.setInterval(fadePeriod);
}

void VolumeBar::keepThumbOnBar() {
    const double lowest = form_.Image2.top + form_.Image2.height - form_.Image1.height;
    if (form_.Image1.top < form_.Image2.top)
        form_.Image1.top = form_.Image2.top.get();
    if (form_.Image1.top > lowest)
        form_.Image1.top = lowest;
}

void VolumeBar::startFade() {
    FadeVolume_ = fadeAtRest;
    form_.Label5.foreColor = red;
}

void VolumeBar::Image2_MouseUp(const controls::MouseEvent& event) {
    MouseButton_ = event.button;
    form_.Image1.top = form_.Image2.top + event.y - form_.Image1.height / 2;
    keepThumbOnBar();
    VolumeMax_ = 100;
    readThumb();
    ApplicaVolume();
    companions_.TornaAllEditor();
    startFade();
    form_.Timer3.setInterval(fadePeriod);
}

void VolumeBar::Image1_MouseDown(const controls::MouseEvent& event) {
    form_.Timer2.setEnabled(true);
    startFade();
    MouseButton_ = event.button;
}

void VolumeBar::Image1_MouseMove(const controls::MouseEvent& event) {
    MouseButton_ = event.button;
    DragY_ =
        std::max(form_.Image1.top + event.y - barTop, form_.Image2.top - form_.Image1.height * dragAbove);
    ApplicaVolume();
    keepThumbOnBar();
    companions_.TornaAllEditor();
}

void VolumeBar::Image1_MouseUp(const controls::MouseEvent& event) {
    form_.Timer3.setInterval(fadePeriod);
    form_.Timer2.setEnabled(false);
    MouseButton_ = event.button;
    ApplicaVolume();
    companions_.TornaAllEditor();
}

void VolumeBar::Timer2_Timer() {
    if (MouseButton_ == leftButton) {
        const double lowest = form_.Image2.height - form_.Image1.height + form_.Image2.top;
        std::int16_t target = 0;
        base::carryOn([&] { target = base::toInt16(DragY_ - form_.Image1.height / 2 + form_.Image2.top); });
        if (target > lowest)
            base::carryOn([&] { target = base::toInt16(lowest); });
        form_.Image1.top = std::max<std::int16_t>(target, 0);
    }
    readThumb();
}

void VolumeBar::Timer3_Timer() {
    base::carryOn([&] { FadeVolume_ = base::sumInt16(FadeVolume_, fadeStep); });
    // After a change of speed, one fade runs without changing colours and clears the mark of that change.
    const bool coloured = form_.Label7.tag->empty();
    if (FadeVolume_ == 0) {
        if (coloured)
            form_.Label5.foreColor = red;
        return;
    }
    const auto paleness = static_cast<unsigned>(std::clamp<std::int16_t>(FadeVolume_, 0, fadeEnd));
    if (coloured)
        form_.Label5.foreColor = controls::rgb(255, paleness, paleness);
    if (FadeVolume_ >= fadeEnd) {
        FadeVolume_ = fadeAtRest;
        form_.Timer3.setInterval(0);
        form_.Label7.tag = u"";
    }
}

} // namespace player
