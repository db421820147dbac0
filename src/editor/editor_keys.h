#pragma once

#include "editor/form2.h"
#include "editor/toolbar.h"
#include "player/form1.h"

#include <array>
#include <functional>

namespace editor {

// The keys and the mouse in the text: what is taken from the control and given to the player or to the
// program.
class EditorKeys {
public:
    EditorKeys(Form2& form, Toolbar& toolbar, player::Form1& player);

    // Keys of the tables that no menu is to take away: function keys, and letters that act on their press or
    // whose press does nothing.
    bool RTB_TakesKey(const platform::KeyEvent& key) const;
    void RTB_KeyDown(platform::KeyEvent& key);
    void RTB_KeyUp(const platform::KeyEvent& key);
    void RTB_EditKey(platform::EditCommand command);
    // The right button opens the edit menu at the pointer.
    void RTB_MouseDown(int button);
    // A key that no control of the window has taken.
    void Form_KeyDown(const platform::KeyEvent& key);

private:
    using Routine = std::function<void()>;
    // A command whose key is pressed with Ctrl alone.
    struct PressRow {
        const Routine& command;
        int keyCode;
        bool spent; // else the control still sees the key, without its Ctrl
    };
    const PressRow* pressRow(int keyCode) const;
    bool givesPlayerCommand(platform::KeyEvent& key);
    void giveEditCommand(int keyCode);
    void giveStyleCommand(int keyCode);
    void givePlayerCommand(int keyCode);

    Form2& form_;
    Toolbar& toolbar_;
    player::Form1& player_;
    std::array<PressRow, 8> pressRows_;
};

} // namespace editor
