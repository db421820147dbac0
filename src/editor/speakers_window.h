#pragma once

#include "controls/controls.h"

namespace editor {

// The list of speakers as data: a resizable window. A row holds the number of the key, the name and the
// number of paragraphs, separated by tabs. The desktop positions the controls.
struct SpeakersWindow : controls::Window {
    SpeakersWindow() : Window("SpeakersWindow", {0, 0, 6300, 5400}) {
        lblEmpty.alignment = controls::Alignment::Centre;
        lblEmpty.foreColor = lblKeys.foreColor = controls::rgb(0x5B, 0x67, 0x7A);
        lblName.labels = &txtName;
        cmdRename.isDefault = true;
        cmdClose.isCancel = true;
    }

    controls::ListBox List1{"lstSpeakers", {}};
    controls::Label lblEmpty{"lblNoSpeakers", {}}; // shown instead of rows
    controls::Label lblName{"lblSpeakerName", {}};
    controls::TextBox txtName{"txtSpeakerName", {}};
    controls::CommandButton cmdRename{"cmdRenameSpeaker", {}};
    controls::Label lblKeys{"lblSpeakerKeys", {}}; // what the keys do
    controls::CommandButton cmdClose{"cmdCloseSpeakers", {}};
};

} // namespace editor
