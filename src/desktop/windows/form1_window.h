#pragma once

#include "desktop/views/form_window.h"
#include "player/form1.h"

#include <memory>

namespace desktop {

class VideoScreen;

// Shows the player window and reports what the user does to it. Its skin keeps its size; above it lies the
// menu bar.
class Form1Window : public FormWindow {
public:
    explicit Form1Window(player::Form1& form);
    ~Form1Window() override;

private:
    void followPointer();

    player::Form1& form_;
    std::unique_ptr<VideoScreen> video_;
    bool waiting_ = false; // the hourglass on the screen is this window's; a drag has a pointer of its own
};

} // namespace desktop
