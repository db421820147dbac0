#pragma once

#include "player/form1.h"

namespace player {

// Where the picture of a video is seen: in its small box on the player, or in a window of its own. Without a
// picture the box is not seen and covers nothing.
class VideoPicture {
public:
    // `form2` and `form3`, text and marks, are not to be covered.
    VideoPicture(Form1& form, const controls::Window& form2, const controls::Window& form3);

    void WMP1_PictureChanged();
    // Opens the picture in its window: for the first time in its own proportions, as large as it is, as far
    // as the screen allows; from then on where the user has left the window.
    void WMP1_DblClick();

    void VideoWindow_DblClick();
    void VideoWindow_KeyDown(int keyCode);
    bool VideoWindow_Unload();

private:
    // A part of the screen in twips.
    struct Area {
        double left, top, right, bottom;
    };

    void open();
    void putBack();
    // The window goes with the player: it is not seen while that is minimised or hidden.
    void followPlayer();
    void placeWindow(platform::PictureSize picture);
    Area roomiest(platform::PictureSize picture) const;
    double scaleIn(const Area& area, platform::PictureSize picture) const;

    Form1& form_;
    const controls::Window& Form2_;
    const controls::Window& Form3_;
    platform::PictureSize placedFor_; // the picture that the window stands right for; none before the first
    bool away_ = false;               // the window has gone with the player
};

} // namespace player
