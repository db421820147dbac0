#pragma once

#include "player/companions.h"
#include "player/form1.h"

#include <cstdint>

namespace player {

// The vertical volume bar: sets the volume and shows it as a number that fades. The bar can be clicked; the
// thumb can be dragged and follows on a timer. Positions are twips of the window; the volume is 0 to 100.
class VolumeBar {
public:
    VolumeBar(Form1& form, Companions& companions);

    // Centres the thumb on the bar; called at the start.
    void IniziaVolume();
    // Applies the volume in the thumb's tag to the player and the label.
    void ApplicaVolume();
    // Sets the volume, 0 to 100, as the mouse does.
    void setVolume(double percent);

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
    double DragY_ = 0;              // target of the drag, in twips from the top of the bar
    std::int16_t FadeVolume_ = -15; // state of the fade, -15 at rest
};

} // namespace player
