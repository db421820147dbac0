#pragma once

#include "outside/frm_informazioni.h"
#include "platform/shell.h"
#include "player/form1.h"

namespace outside {

// The about box: its texts, its scrolling credits, and the windows that are hidden while it is open.
class AboutBox {
public:
    AboutBox(FrmInformazioni& about, player::Form1& form1, controls::Window& form2, controls::Window& form3,
             platform::Shell& shell);

    void mnuInfo_Click();
    void Timer1_Timer();
    void lblHomePage_Click();
    void Form_Unload();

private:
    void Form_Load();
    void fillIn();
    // Hides or shows the windows that the two menu commands report as shown.
    void showOthers(bool shown);

    FrmInformazioni& about_;
    player::Form1& form1_;
    controls::Window& Form2_;
    controls::Window& Form3_;
    platform::Shell& shell_;
};

} // namespace outside
