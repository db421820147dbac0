#pragma once

#include "editor/form2.h"
#include "editor/toolbar.h"
#include "player/form1.h"

namespace editor {

// The keys and the mouse in the text: what is taken from the control and given to the player or to the
// program.
class EditorKeys {
public:
    EditorKeys(Form2& form, Toolbar& toolbar, player::Form1& player);

    void RTB_KeyDown(platform::KeyEvent& key);
    void RTB_KeyUp(const platform::KeyEvent& key);
    void RTB_EditKey(platform::EditCommand command);
    // The right button opens the edit menu at the pointer.
    void RTB_MouseDown(int button);
    // A key that no control of the window has taken.
    void Form_KeyDown(const platform::KeyEvent& key);

private:
    // Commands of the editor and the player, whose keys are pressed with Ctrl alone.
    bool givesPlayerCommand(platform::KeyEvent& key);
    void giveEditCommand(int keyCode);
    void giveStyleCommand(int keyCode);
    void givePlayerCommand(int keyCode);

    Form2& form_;
    Toolbar& toolbar_;
    player::Form1& player_;
};

} // namespace editor
