#pragma once

#include "controls/controls.h"

namespace aids {

// The figures of the work as data: a resizable window. A row holds a name and its figure, separated by a tab;
// one without a figure is a heading. The desktop positions the controls.
struct FiguresWindow : controls::Window {
    FiguresWindow() : Window("FiguresWindow", {0, 0, 6300, 7350}) {
        lblKept.foreColor = controls::rgb(0x5B, 0x67, 0x7A);
        cmdClose.isCancel = true;
    }

    controls::ListBox List1{"lstFigures", {}};
    controls::Label lblKept{"lblWorklog", {}}; // where the worklog is
    controls::CommandButton cmdClose{"cmdCloseFigures", {}};
};

} // namespace aids
