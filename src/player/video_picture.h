#pragma once

#include "player/form1.h"

namespace player {

// Where the picture of a video is seen: in its small box on the player, or in a window of its own. Without a
// picture the box is not seen and covers nothing.
class VideoPicture {
public:
    explicit VideoPicture(Form1& form);

    void WMP1_PictureChanged();
    // Opens the picture in its window, in its own proportions and as large as it is, as far as the screen
    // allows.
    void WMP1_DblClick();

    void VideoWindow_DblClick();
    void VideoWindow_KeyDown(int keyCode);
    bool VideoWindow_Unload();

private:
    void putBack();
    void sizeWindow(platform::PictureSize picture);

    Form1& form_;
};

} // namespace player
