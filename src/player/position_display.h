#pragma once

#include "player/form1.h"

namespace player {

// Shows where the player stands: title line, position text and position bar. It decides nothing.
class PositionDisplay {
public:
    explicit PositionDisplay(Form1& form);

    // One refresh: every 100 ms while a file runs, and at once after a step.
    void Timer1_Timer();

    // Shows the title and chooses the size of its letters by its length.
    void MostraPath();

    // Shows position 0 and the length of the media.
    void showStart();

private:
    base::Text title() const;

    Form1& form_;
};

} // namespace player
