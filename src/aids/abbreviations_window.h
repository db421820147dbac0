#pragma once

#include "controls/controls.h"

namespace aids {

// The list of abbreviations as data: a resizable window. A row holds the short form and the text, separated
// by a tab. The desktop positions the controls.
struct AbbreviationsWindow : controls::Window {
    AbbreviationsWindow() : Window("AbbreviationsWindow", {0, 0, 8400, 6600}) {
        lblEmpty.alignment = controls::Alignment::Centre;
        lblEmpty.foreColor = lblHint.foreColor = controls::rgb(0x5B, 0x67, 0x7A);
        lblFault.foreColor = controls::rgb(0xB0, 0x20, 0x20);
        lblSearch.labels = &txtSearch;
        lblShort.labels = &txtShort;
        lblText.labels = &txtText;
        cmdAdd.isDefault = true;
        cmdClose.isCancel = true;
    }

    controls::Label lblSearch{"lblSearchAbbreviations", {}};
    controls::TextBox txtSearch{"txtSearchAbbreviations", {}};
    controls::ListBox List1{"lstAbbreviations", {}};
    controls::Label lblEmpty{"lblNoAbbreviations", {}}; // shown instead of rows
    controls::Label lblShort{"lblShortForm", {}};
    controls::TextBox txtShort{"txtShortForm", {}};
    controls::Label lblText{"lblLongForm", {}};
    controls::TextBox txtText{"txtLongForm", {}};
    controls::Label lblHint{"lblFillings", {}};           // what the names in braces stand for
    controls::Label lblFault{"lblAbbreviationFault", {}}; // empty if all is well
    controls::CommandButton cmdAdd{"cmdAddAbbreviation", {}};
    controls::CommandButton cmdChange{"cmdChangeAbbreviation", {}};
    controls::CommandButton cmdDelete{"cmdDeleteAbbreviation", {}};
    controls::CommandButton cmdClose{"cmdCloseAbbreviations", {}};
};

} // namespace aids
