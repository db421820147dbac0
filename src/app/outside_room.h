#pragma once

#include "app/desktop.h"
#include "outside/about_box.h"
#include "outside/links.h"
#include "outside/update_check.h"
#include "player/form1.h"

namespace app {

// Everything that leads out of the program: links, the update check, and the about box with its window.
class OutsideRoom {
public:
    OutsideRoom(Desktop& desktop, player::Form1& form1, controls::Window& form2, controls::Window& form3);

    outside::UpdateCheck& updateCheck() { return updateCheck_; }

private:
    void showAboutBox();

    Desktop& desktop_;
    outside::FrmInformazioni about_;
    outside::Links links_;
    outside::UpdateCheck updateCheck_;
    outside::AboutBox aboutBox_;
    bool aboutBuilt_ = false; // its window exists
};

} // namespace app
