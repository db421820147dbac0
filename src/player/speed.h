#pragma once

#include "player/form1.h"

namespace player {

// Changes the playback speed in steps of 0.1 between 0.5 and about 5, and displays it from the first change
// on. Rounding errors of the steps accumulate. The speed is not saved.
class Speed {
public:
    explicit Speed(Form1& form);

    void mnuAumentaVelocità_Click();
    void mnuDiminuisciVelocità_Click();
    // Sets the speed factor, as far as the player can.
    void setRate(double factor);

private:
    void showRate();

    Form1& form_;
};

} // namespace player
