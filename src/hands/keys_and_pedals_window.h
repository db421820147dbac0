#pragma once

#include "controls/controls.h"

namespace hands {

// A box that shows the combination of keys that was pressed in it last, such as "Ctrl+Alt+Space".
struct KeyBox : controls::Control {
    using Control::Control;

    controls::Property<base::Text> keys{this};

    std::function<void()> setFocus = [] {};
    // The user pressed or removed a combination; `keys` is already updated.
    std::function<void()> Change = [] {};
    // The box has got the keyboard, or lost it.
    std::function<void(bool has)> Focus = [](bool) {};
};

// The window in which keys from anywhere and foot pedals are set up, as data. A row of the list holds the
// command, its key and its pedals, separated by tabs. The desktop positions the controls.
struct KeysAndPedalsWindow : controls::Window {
    KeysAndPedalsWindow() : Window("KeysAndPedalsWindow", {0, 0, 8400, 7500}) {
        lblState.foreColor = controls::rgb(0x5B, 0x67, 0x7A);
        lblKey.labels = &keyBox;
        cmdClose.isCancel = true;
    }

    controls::CheckBox chkKeys{"chkGlobalKeys", {}};
    controls::CheckBox chkPedals{"chkPedals", {}};
    controls::CheckBox chkPanels{"chkPanels", {}};
    controls::ListBox List1{"lstHandCommands", {}};
    controls::Label lblKey{"lblHandKey", {}};
    KeyBox keyBox{"txtHandKey", {}};
    controls::CommandButton cmdNoKey{"cmdNoHandKey", {}};
    controls::Label lblPedal{"lblHandPedal", {}};
    controls::CommandButton cmdLearn{"cmdLearnPedal", {}};
    controls::CommandButton cmdNoPedal{"cmdNoPedal", {}};
    controls::Label lblState{"lblHandState", {}}; // what cannot be used, and why; what is plugged in
    controls::CommandButton cmdCopy{"cmdCopyRule", {}};
    controls::CommandButton cmdClose{"cmdCloseHands", {}};
};

} // namespace hands
