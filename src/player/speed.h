#pragma once

#include "player/form1.h"

namespace player {

// Steps the speed of playback by a tenth, between 0.5 and about 5, and shows it from the first change on. The
// steps add up as they come; the speed is not saved.
class Speed {
public:
    explicit Speed(Form1& form);

    void mnuAumentaVelocità_Click();
    void mnuDiminuisciVelocità_Click();

private:
    void showRate();

    Form1& form_;
};

} // namespace player
