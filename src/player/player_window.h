#pragma once

#include "platform/settings_store.h"
#include "player/form1.h"
#include "player/position_display.h"

namespace player {

// The player window's behaviour: hides its companions when minimised, stays on top, shows the editor, shows
// the full path.
class PlayerWindow {
public:
    PlayerWindow(Form1& form, controls::Window& form2, controls::Window& form3, PositionDisplay& display,
                 platform::SettingsStore& store);

    // After a minimise, shows the windows again that the captions of the two menu commands report as shown.
    void Form_Resize();
    void mnuMostraNascondi_Click();
    // Toggles "always on top", and moves the player to pixel (50, 50) each time.
    void mnuPrimoPiano_Click();
    void mnuTitoloCompleto_Click();

    // Makes the window topmost or not, and moves it to pixel (50, 50).
    void stayOnTop(bool on);

private:
    Form1& form_;
    controls::Window& Form2_;
    controls::Window& Form3_;
    PositionDisplay& display_;
    platform::SettingsStore& store_;
};

} // namespace player
