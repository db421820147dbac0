#pragma once

#include "platform/settings_store.h"
#include "player/form1.h"
#include "player/position_display.h"

namespace player {

// The player window as a window: takes its companions along when it is minimised, stays on top, shows the
// editor, shows the whole path.
class PlayerWindow {
public:
    PlayerWindow(Form1& form, controls::Window& form2, controls::Window& form3, PositionDisplay& display,
                 platform::SettingsStore& store);

    // What the two menu commands say brings the windows back after a minimise.
    void Form_Resize();
    void mnuMostraNascondi_Click();
    // Each toggle also moves the player to pixel (50, 50).
    void mnuPrimoPiano_Click();
    void mnuTitoloCompleto_Click();

    // Puts the window above all others or among them, at pixel (50, 50).
    void stayOnTop(bool on);

private:
    Form1& form_;
    controls::Window& Form2_;
    controls::Window& Form3_;
    PositionDisplay& display_;
    platform::SettingsStore& store_;
};

} // namespace player
