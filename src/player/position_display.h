#pragma once

#include "player/form1.h"

namespace player {

// Displays the player's position: title line, position text and position bar. It controls nothing.
class PositionDisplay {
public:
    explicit PositionDisplay(Form1& form);

    // One refresh: every 100 ms while a file runs, and immediately after a step.
    void Timer1_Timer();

    // Shows the title in a font size that depends on its length.
    void MostraPath();

    // Shows position 0 and the duration of the media.
    void showStart();

private:
    base::Text title() const;

    Form1& form_;
};

} // namespace player
