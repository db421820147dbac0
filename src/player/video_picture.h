#pragma once

#include "player/form1.h"

namespace player {

// Where a video is shown: in its small box on the player or in a window of its own. Without a video the box
// is hidden, so that it covers nothing.
class VideoPicture {
public:
    // The window avoids covering `form2` (the editor) and `form3` (the bookmarks).
    VideoPicture(Form1& form, const controls::Window& form2, const controls::Window& form3);

    void WMP1_PictureChanged();
    // Opens the video in its window: the first time in its own proportions and up to its own size, as the
    // screen permits; later where the user left the window.
    void WMP1_DblClick();

    void VideoWindow_DblClick();
    void VideoWindow_KeyDown(int keyCode);
    bool VideoWindow_Unload();

private:
    // An area of the screen in twips.
    struct Area {
        double left, top, right, bottom;
    };

    void open();
    void putBack();
    // Hides the window while the player is minimised or hidden, and shows it again afterwards.
    void followPlayer();
    void placeWindow(platform::PictureSize picture);
    Area roomiest(platform::PictureSize picture) const;
    double scaleIn(const Area& area, platform::PictureSize picture) const;

    Form1& form_;
    const controls::Window& Form2_;
    const controls::Window& Form3_;
    platform::PictureSize placedFor_; // the picture that the window's proportions fit; none before the first
    bool away_ = false;               // the window is hidden together with the player
};

} // namespace player
