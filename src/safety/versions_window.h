#pragma once

#include "controls/controls.h"

namespace safety {

// A text that can be read, scrolled and copied, not changed.
struct TextSheet : controls::Control {
    using Control::Control;

    controls::Property<base::Text> text{this};
};

// The list of earlier versions as data: a window that the user may resize. A row is the document, its time,
// its size and the reason, with tabs between them. Who shows it puts the controls in their places.
struct VersionsWindow : controls::Window {
    VersionsWindow() : Window("VersionsWindow", {0, 0, 11400, 6450}) {
        lblEmpty.alignment = controls::Alignment::Centre;
        lblEmpty.foreColor = lblKept.foreColor = controls::rgb(0x5B, 0x67, 0x7A);
        cmdOpen.isDefault = true;
        cmdClose.isCancel = true;
    }

    controls::ListBox List1{"lstVersions", {}};
    controls::Label lblEmpty{"lblNoVersions", {}}; // in place of rows
    TextSheet txtVersion{"txtVersion", {}};        // text of the chosen one
    controls::CommandButton cmdDeleteAll{"cmdDeleteVersions", {}};
    controls::CommandButton cmdCopy{"cmdCopyVersion", {}};
    controls::CommandButton cmdOpen{"cmdOpenVersion", {}};
    controls::CheckBox chkKeep{"chkKeepVersions", {}};
    controls::Label lblKept{"lblVersionsKept", {}}; // how long and where
    controls::CommandButton cmdClose{"cmdCloseVersions", {}};
};

} // namespace safety
