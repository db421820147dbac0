#pragma once

#include "player/form1.h"
#include "player/transport.h"

namespace player {

// The position bar reacts to a click, not to a drag: releasing the button seeks to that position, in whole
// seconds.
class SeekBar {
public:
    SeekBar(Form1& form, Transport& transport);

    // If the player is paused, it plays for an instant and pauses again, SecIndietro seconds before the
    // position.
    void Label2_MouseUp(const controls::MouseEvent& event);
    // Seeks to this position in seconds; a paused player stays paused.
    void setPosition(double seconds);

private:
    Form1& form_;
    Transport& transport_;
};

} // namespace player
