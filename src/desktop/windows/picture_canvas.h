#pragma once

#include <QRect>

#include <cstdint>

struct xcb_connection_t;

namespace desktop {

// The native window in which the media player draws its video, created with plain X calls: Qt recreates its
// native windows after many changes, and their child windows are destroyed with them. This window is moved
// out beforehand, so that the player can keep using it as long as the program runs.
//
// It consists of two nested windows. The outer one is shown, hidden and moved between windows. The inner one,
// used by the player, is mapped once and stays mapped: if its state changed while mpv builds its output, mpv
// would take that for a change of its own window and then never show its own.
class PictureCanvas {
public:
    // Without an X server there is no window, and nothing is shown.
    PictureCanvas();
    ~PictureCanvas();
    PictureCanvas(const PictureCanvas&) = delete;
    PictureCanvas& operator=(const PictureCanvas&) = delete;

    // The X window id for the media player; 0 if there is none.
    std::uint64_t id() const { return inner_; }
    // Shows the video inside an X window, at this place in device pixels.
    void showIn(std::uint64_t window, QRect place);
    // Removes the video from the window that shows it.
    void takeOut();
    bool isIn(std::uint64_t window) const { return parent_ != 0 && parent_ == window; }

private:
    xcb_connection_t* connection_ = nullptr;
    std::uint32_t root_ = 0;
    std::uint32_t outer_ = 0;
    std::uint32_t inner_ = 0;
    std::uint32_t parent_ = 0; // the window that shows the video; 0: none
    QRect place_;
};

} // namespace desktop
