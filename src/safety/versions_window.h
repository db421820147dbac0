#pragma once

#include "controls/controls.h"

namespace safety {

// A read-only text box that can be scrolled and copied from.
struct TextSheet : controls::Control {
    using Control::Control;

    controls::Property<base::Text> text{this};
};

// The list of earlier versions as data: a resizable window. A row holds document, time, size and reason,
// separated by tabs. The desktop positions the controls.
struct VersionsWindow : controls::Window {
    VersionsWindow() : Window("VersionsWindow", {0, 0, 12600, 6450}) {
        lblEmpty.alignment = controls::Alignment::Centre;
        lblEmpty.foreColor = lblKept.foreColor = controls::rgb(0x5B, 0x67, 0x7A);
        cmdOpen.isDefault = true;
        cmdClose.isCancel = true;
    }

    controls::ListBox List1{"lstVersions", {}};
    controls::Label lblEmpty{"lblNoVersions", {}}; // shown instead of rows
    TextSheet txtVersion{"txtVersion", {}};        // text of the selected version
    controls::CommandButton cmdDeleteAll{"cmdDeleteVersions", {}};
    controls::CommandButton cmdCopy{"cmdCopyVersion", {}};
    controls::CommandButton cmdOpen{"cmdOpenVersion", {}};
    controls::CheckBox chkKeep{"chkKeepVersions", {}};
    controls::Label lblKept{"lblVersionsKept", {}}; // how long and where versions are kept
    controls::CommandButton cmdClose{"cmdCloseVersions", {}};
};

} // namespace safety
