#pragma once

#include "controls/controls.h"

namespace aids {

// What the check before delivery found, as data: a resizable window. A row holds what is before the finding,
// the finding and what is behind it, separated by tabs; a heading is a tab and its text. The desktop
// positions the controls.
struct DeliveryWindow : controls::Window {
    DeliveryWindow() : Window("DeliveryWindow", {0, 0, 9600, 7200}) {
        lblState.foreColor = controls::rgb(0x5B, 0x67, 0x7A);
        cmdGo.isDefault = true;
        cmdClose.isCancel = true;
    }

    controls::ListBox List1{"lstFindings", {}};
    controls::Label lblState{"lblFindings", {}}; // how far the check is, or how much was found
    controls::CommandButton cmdGo{"cmdGoToFinding", {}};
    controls::CommandButton cmdHide{"cmdHideFinding", {}};
    controls::CommandButton cmdAgain{"cmdCheckAgain", {}};
    controls::CommandButton cmdClose{"cmdCloseFindings", {}};
};

} // namespace aids
