// The find window as data: every control under its given name, with its initial position, caption and state.
#pragma once

#include "controls/controls.h"
#include "controls/timer.h"

namespace editor {

// Find and replace: two boxes with histories, two options, four buttons. For find, the lower box and two
// buttons are hidden.
struct FrmFind : controls::Window {
    explicit FrmFind(platform::EventLoop& loop);

    static constexpr double clientWidth = 6300;  // twips
    static constexpr double clientHeight = 1965; // twips

    controls::Label lblFind{"lblFind", {150, 165, 1500, 315}};
    controls::ComboBox cboFind{"cboFind", {1710, 165, 2565, 315}};
    controls::Label lblReplace{"lblReplace", {150, 510, 1500, 315}};
    controls::ComboBox cboReplace{"cboReplace", {1710, 510, 2565, 315}};
    controls::Label Frame1{"Frame1",
                           {150, 960, 4125, 840}}; // around the two options, its caption on the line
    controls::CheckBox chkWholeWord{"chkWholeWord", {330, 1185, 3795, 270}};
    controls::CheckBox chkMatchCase{"chkMatchCase", {330, 1455, 3795, 270}};
    controls::CommandButton cmdFind{"cmdFind", {4425, 150, 1725, 345}};
    controls::CommandButton cmdReplace{"cmdReplace", {4425, 585, 1725, 345}};
    controls::CommandButton cmdReplaceAll{"cmdReplaceAll", {4425, 1020, 1725, 345}};
    controls::CommandButton cmdCancel{"cmdCancel", {4425, 1455, 1725, 345}};

    controls::Timer Timer1; // unloads the window when the program ends
};

} // namespace editor
