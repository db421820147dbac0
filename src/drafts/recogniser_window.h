#pragma once

#include "controls/controls.h"

namespace drafts {

// A bar that fills from left to right.
struct ProgressBar : controls::Control {
    using Control::Control;

    controls::Property<double> share{this, 0.0}; // 0 to 1; below 0: the end is not known
};

// The window in which a recogniser is chosen and watched, as data. The desktop positions the controls.
struct RecogniserWindow : controls::Window {
    RecogniserWindow() : Window("RecogniserWindow", {0, 0, 8700, 4800}) {
        cboRecogniser.editable = false;
        lblRecording.fontBold = true;
        lblRecording.showsPath = true;
        lblHint.foreColor = controls::rgb(0x5B, 0x67, 0x7A);
        lblRecogniser.labels = &cboRecogniser;
        lblCommand.labels = &txtCommand;
        cmdStart.isDefault = true;
        cmdClose.isCancel = true;
    }

    controls::Label lblRecording{"lblRecogniserRecording", {}}; // name and length
    controls::Label lblRecogniser{"lblRecogniser", {}};
    controls::ComboBox cboRecogniser{"cboRecogniser", {}};
    controls::Label lblCommand{"lblRecogniserCommand", {}};
    controls::TextBox txtCommand{"txtRecogniserCommand", {}};
    controls::Label lblHint{"lblRecogniserHint", {}}; // about the chosen one
    controls::CommandButton cmdCopy{"cmdCopyInstall", {}};
    ProgressBar barProgress{"barRecogniser", {}};
    controls::Label lblStatus{"lblRecogniserStatus", {}}; // how far it is, or how it ended
    controls::CommandButton cmdStart{"cmdStartRecogniser", {}};
    controls::CommandButton cmdStop{"cmdStopRecogniser", {}};
    controls::CommandButton cmdClose{"cmdCloseRecogniser", {}};
};

} // namespace drafts
