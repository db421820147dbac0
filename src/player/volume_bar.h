#pragma once

#include "player/companions.h"
#include "player/form1.h"

#include <cstdint>

namespace player {

// The vertical bar with its thumb: sets the volume and shows it in letters that fade. Its bar takes a click,
// its thumb a drag that follows at the pace of a timer. Places are twips of the window, the volume is 0 to
// 100.
class VolumeBar {
public:
    VolumeBar(Form1& form, Companions& companions);

    // Centres the thumb on the bar, at the start.
    void IniziaVolume();
    // Gives the number in the thumb's tag to the player and to the label.
    void ApplicaVolume();

    void Image2_MouseUp(const controls::MouseEvent& event);
    void Image1_MouseDown(const controls::MouseEvent& event);
    void Image1_MouseMove(const controls::MouseEvent& event);
    void Image1_MouseUp(const controls::MouseEvent& event);
    void Timer2_Timer();
    void Timer3_Timer();

private:
    void readThumb();
    void keepThumbOnBar();
    void startFade();

    Form1& form_;
    Companions& companions_;
    std::int32_t VolumeMax_ = 100;
    std::int32_t VolumeCorrente_ = 0;
    int MouseButton_ = 0;           // button of the last mouse event on the bar
    double DragY_ = 0;              // target of the drag, from the top of the bar
    std::int16_t FadeVolume_ = -15; // step of the fade, -15 at rest
};

} // namespace player
