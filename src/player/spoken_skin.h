#pragma once

#include "lang/words.h"
#include "player/form1.h"
#include "player/seek_bar.h"
#include "player/volume_bar.h"

namespace player {

// What screen readers are told of the player: names, states and values of the skin's controls, and what
// changes without their doing. The phases of smart play and the running clock are not announced.
class SpokenSkin {
public:
    SpokenSkin(Form1& form, SeekBar& seekBar, VolumeBar& volumeBar, platform::EventLoop& loop,
               lang::Words& words);

private:
    void describe(SeekBar& seekBar, VolumeBar& volumeBar);
    void nameControls();
    void nameLogo();
    // The position as words, such as "0:24 of 1:05".
    base::Text positionText() const;
    void announceLater();
    void announce();

    Form1& form_;
    lang::Words& words_;
    controls::Timer settled_; // several changes in a row are announced as one
    bool playing_ = false;    // as last announced
    base::Text speed_;        // likewise
};

} // namespace player
