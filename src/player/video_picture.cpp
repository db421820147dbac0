#include "player/video_picture.h"

#include <algorithm>
#include <cmath>

namespace player {

namespace {

using controls::WindowState;

constexpr double gap = 300;         // twips left free around the picture, about a window's frame
constexpr double leastWidth = 2400; // twips; if less is free, the window covers other windows

bool isSeen(const controls::Window& window) {
    return window.visible && window.windowState != WindowState::Minimised;
}

} // namespace

VideoPicture::VideoPicture(Form1& form, const controls::Window& form2, const controls::Window& form3)
    : form_(form), Form2_(form2), Form3_(form3) {
    form_.WMP1.PictureChanged = [this] { WMP1_PictureChanged(); };
    form_.VideoBox.DblClick = [this] { WMP1_DblClick(); };
    form_.VideoWindow.DblClick = [this] { VideoWindow_DblClick(); };
    form_.VideoWindow.KeyDown = [this](const platform::KeyEvent& key) { VideoWindow_KeyDown(key.keyCode); };
    form_.VideoWindow.Unload = [this] { return VideoWindow_Unload(); };
    form_.observe([this] { followPlayer(); });
}

void VideoPicture::WMP1_PictureChanged() {
    if (!form_.WMP1.pictureSize().exists())
        putBack();
    else
        form_.VideoBox.visible = !form_.VideoWindow.visible && !away_;
}

void VideoPicture::WMP1_DblClick() {
    const platform::PictureSize picture = form_.WMP1.pictureSize();
    if (!picture.exists())
        return;
    placeWindow(picture);
    form_.VideoWindow.windowState = WindowState::Normal;
    open();
}

void VideoPicture::open() {
    // The name of the playing file, not the title line's: a dropped file does not change the title line.
    form_.VideoWindow.caption = base::Text(base::afterLast(form_.WMP1.URL(), base::pathSeparator));
    form_.VideoWindow.icon = form_.icon.get();
    form_.VideoWindow.topmost = form_.topmost.get();
    form_.VideoBox.visible = false;
    form_.VideoWindow.visible = true;
}

void VideoPicture::followPlayer() {
    if (!isSeen(form_) && form_.VideoWindow.visible) {
        away_ = true;
        form_.VideoWindow.visible = false;
    } else if (isSeen(form_) && away_) {
        away_ = false;
        open();
    }
}

void VideoPicture::placeWindow(platform::PictureSize picture) {
    controls::Window& window = form_.VideoWindow;
    if (placedFor_.width * picture.height == placedFor_.height * picture.width && placedFor_.exists())
        return;
    double scale = 0;
    if (!placedFor_.exists()) {
        const Area area = roomiest(picture);
        window.left = area.left;
        window.top = area.top;
        scale = scaleIn(area, picture);
    } else {
        // Keeps the position and width of the user's window, with the proportions of this picture.
        scale = std::min(window.width / picture.width,
                         std::max(form_.screen.height - gap - window.top, gap) / picture.height);
    }
    window.width = std::round(picture.width * scale);
    window.height = std::round(picture.height * scale);
    placedFor_ = picture;
}

VideoPicture::Area VideoPicture::roomiest(platform::PictureSize picture) const {
    const double right = form_.screen.width - gap;
    const double bottom = form_.screen.height - 2 * gap; // a title bar is higher than a border
    Area others{form_.left, form_.top, form_.left + form_.width, form_.top + form_.height};
    Area row = others; // the player and the bookmarks beside it
    for (const controls::Window* const window : {&Form3_, &Form2_}) {
        if (!isSeen(*window))
            continue;
        others = {std::min<double>(others.left, window->left), std::min<double>(others.top, window->top),
                  std::max<double>(others.right, window->left + window->width),
                  std::max<double>(others.bottom, window->top + window->height)};
        if (window == &Form3_)
            row = others;
    }
    const double endOfRow = isSeen(Form2_) && Form2_.top > form_.top ? Form2_.top - gap : bottom;
    const Area areas[] = {{row.right + gap, form_.top, right, endOfRow},
                          {others.right + gap, form_.top, right, bottom},
                          {others.left, others.bottom + gap, right, bottom},
                          {gap, form_.top, others.left - gap, bottom}};
    const Area best =
        *std::max_element(std::begin(areas), std::end(areas), [&](const Area& a, const Area& b) {
            return scaleIn(a, picture) < scaleIn(b, picture);
        });
    if (scaleIn(best, picture) * picture.width >= std::min(leastWidth, picture.width))
        return best;
    const double left = std::min(form_.left + form_.width + gap, right / 2);
    return {left, std::min<double>(form_.top, bottom / 2), right, bottom};
}

// At most 1: the picture is never enlarged.
double VideoPicture::scaleIn(const Area& area, platform::PictureSize picture) const {
    return std::clamp(
        std::min((area.right - area.left) / picture.width, (area.bottom - area.top) / picture.height), 0.0,
        1.0);
}

void VideoPicture::VideoWindow_DblClick() {
    const bool full = form_.VideoWindow.windowState == WindowState::FullScreen;
    form_.VideoWindow.windowState = full ? WindowState::Normal : WindowState::FullScreen;
}

void VideoPicture::VideoWindow_KeyDown(int keyCode) {
    if (keyCode == platform::enterKey)
        VideoWindow_DblClick();
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
    away_ = false;
    form_.VideoWindow.visible = false;
    form_.VideoWindow.windowState = WindowState::Normal;
    form_.VideoBox.visible = form_.WMP1.pictureSize().exists();
}

} // namespace player
