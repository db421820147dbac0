#pragma once

#include "desktop/views/form_window.h"
#include "player/form1.h"

#include <memory>

namespace desktop {

class VideoScreen;

// Shows the player window and reports user input: a skin of fixed size with the menu bar above it.
class Form1Window : public FormWindow {
public:
    explicit Form1Window(player::Form1& form);
    ~Form1Window() override;

private:
    void followPointer();

    player::Form1& form_;
    std::unique_ptr<VideoScreen> video_;
    bool waiting_ = false; // the wait cursor was set by this window; a drag has a cursor of its own
};

} // namespace desktop
