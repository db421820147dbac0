#pragma once

#include <QRect>

#include <cstdint>

struct xcb_connection_t;

namespace desktop {

// The native window that the media player draws its picture into, made of the X server's own means: Qt makes
// its windows anew at many a change, and all windows inside go with them. This one is taken out before, so
// the player keeps one and the same window for as long as the program runs.
//
// It is two windows, one filling the other. The outer one is shown, hidden, and moved from window to window.
// The inner one, the player's, is mapped once and stays so: mpv takes a change of that, which comes while it
// builds its output, for one of its own window, and then never shows its own.
class PictureCanvas {
public:
    // Without an X server there is no window, and nothing is shown.
    PictureCanvas();
    ~PictureCanvas();
    PictureCanvas(const PictureCanvas&) = delete;
    PictureCanvas& operator=(const PictureCanvas&) = delete;

    // For the media player; 0 when there is none.
    std::uint64_t id() const { return inner_; }
    // Shows the picture inside a window of the X server, at this place in its own pixels.
    void showIn(std::uint64_t window, QRect place);
    // Takes the picture out of the window that shows it.
    void takeOut();
    bool isIn(std::uint64_t window) const { return parent_ != 0 && parent_ == window; }

private:
    xcb_connection_t* connection_ = nullptr;
    std::uint32_t root_ = 0;
    std::uint32_t outer_ = 0;
    std::uint32_t inner_ = 0;
    std::uint32_t parent_ = 0; // the window that it is shown in; 0: none
    QRect place_;
};

} // namespace desktop
