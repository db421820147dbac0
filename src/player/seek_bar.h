#pragma once

#include "player/form1.h"
#include "player/transport.h"

namespace player {

// The click on the position bar. There is no drag: the place of the release is sought, in whole seconds.
class SeekBar {
public:
    SeekBar(Form1& form, Transport& transport);

    // On a paused player the sound starts for an instant and pauses again, SecIndietro seconds before the
    // place.
    void Label2_MouseUp(const controls::MouseEvent& event);

private:
    Form1& form_;
    Transport& transport_;
};

} // namespace player
