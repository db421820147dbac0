#include "player/video_picture.h"

#include <algorithm>
#include <cmath>

namespace player {

namespace {

using controls::WindowState;

constexpr int escapeKey = 27;
constexpr double twipsPerPixel = 15;
constexpr double leastScale = 0.1; // on a screen that has no room beside the player
constexpr double gap = 300;        // twips, about a window's frame, that stay free around the picture

} // namespace

VideoPicture::VideoPicture(Form1& form) : form_(form) {
    form_.WMP1.PictureChanged = [this] { WMP1_PictureChanged(); };
    form_.VideoBox.DblClick = [this] { WMP1_DblClick(); };
    form_.VideoWindow.DblClick = [this] { VideoWindow_DblClick(); };
    form_.VideoWindow.KeyDown = [this](const platform::KeyEvent& key) { VideoWindow_KeyDown(key.keyCode); };
    form_.VideoWindow.Unload = [this] { return VideoWindow_Unload(); };
}

void VideoPicture::WMP1_PictureChanged() {
    if (!form_.WMP1.pictureSize().exists())
        putBack();
    else
        form_.VideoBox.visible = !form_.VideoWindow.visible;
}

void VideoPicture::WMP1_DblClick() {
    const platform::PictureSize picture = form_.WMP1.pictureSize();
    if (!picture.exists())
        return;
    sizeWindow(picture);
    form_.VideoWindow.caption = base::Text(base::afterLast(form_.Label4.tag.get(), base::pathSeparator));
    form_.VideoWindow.topmost = form_.topmost.get();
    form_.VideoWindow.windowState = WindowState::Normal;
    form_.VideoBox.visible = false;
    form_.VideoWindow.visible = true;
}

// The window opens to the right of the player, so that neither the player nor the text below it is covered.
void VideoPicture::sizeWindow(platform::PictureSize picture) {
    const double width = picture.width * twipsPerPixel;
    const double height = picture.height * twipsPerPixel;
    const double left = form_.left + form_.width + gap;
    const double scale = std::min(
        {1.0, (form_.screen.width - left - gap) / width, (form_.screen.height - form_.top - gap) / height});
    form_.VideoWindow.left = left;
    form_.VideoWindow.top = form_.top.get();
    form_.VideoWindow.width = std::round(width * std::max(scale, leastScale));
    form_.VideoWindow.height = std::round(height * std::max(scale, leastScale));
}

void VideoPicture::VideoWindow_DblClick() {
    const bool full = form_.VideoWindow.windowState == WindowState::FullScreen;
    form_.VideoWindow.windowState = full ? WindowState::Normal : WindowState::FullScreen;
}

void VideoPicture::VideoWindow_KeyDown(int keyCode) {
    if (keyCode != platform::escapeKey)
        return;
    if (form_.VideoWindow.windowState == WindowState::FullScreen)
        form_.VideoWindow.windowState = WindowState::Normal;
    else
        putBack();
}

bool VideoPicture::VideoWindow_Unload() {
    putBack();
    return true;
}

void VideoPicture::putBack() {
    form_.VideoWindow.visible = false;
    form_.VideoWindow.windowState = WindowState::Normal;
    form_.VideoBox.visible = form_.WMP1.pictureSize().exists();
}

} // namespace player
