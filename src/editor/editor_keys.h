#pragma once

#include "editor/form2.h"
#include "editor/toolbar.h"
#include "player/form1.h"

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace editor {

// A key of the text and the menu command that it runs.
struct TextKey {
    std::string keys; // such as "Ctrl+F6"
    const controls::MenuItem* command;
};

// Keys and mouse in the text: which ones the control does not get, and which command each of them runs.
class EditorKeys {
public:
    EditorKeys(Form2& form, Toolbar& toolbar, player::Form1& player);

    // Returns true for keys that no menu may intercept: function keys, and Ctrl+letter combinations of the
    // tables.
    bool RTB_TakesKey(const platform::KeyEvent& key) const;
    void RTB_KeyDown(platform::KeyEvent& key);
    void RTB_KeyUp(const platform::KeyEvent& key);
    void RTB_EditKey(platform::EditCommand command);
    // The right button opens the edit menu at the mouse pointer.
    void RTB_MouseDown(int button);
    // Handles a key that no control of the window has handled.
    void Form_KeyDown(const platform::KeyEvent& key);

    // The keys that run a command of a menu, for the list of keys.
    std::vector<TextKey> keys() const;
    // The letters that make bold, italic and underlined with Ctrl.
    std::array<char, 3> styleLetters() const;

private:
    using Routine = std::function<void()>;
    // A command whose shortcut is this key with Ctrl alone.
    struct PressRow {
        const controls::MenuItem& item;
        int keyCode;
        bool consumed; // true: the control does not see the key; false: it sees it without Ctrl
    };
    // A command that runs when this key is released.
    struct ReleaseRow {
        const controls::MenuItem& item; // names the command
        const Routine& command;
        int keyCode;
    };
    const PressRow* pressRow(int keyCode) const;
    bool runPressCommand(platform::KeyEvent& key);
    void runEditCommand(int keyCode);
    void runStyleCommand(int keyCode);
    void runReleaseCommand(int keyCode);

    Form2& form_;
    Toolbar& toolbar_;
    player::Form1& player_;
    std::array<PressRow, 8> pressRows_;
    std::array<PressRow, 2> speedRows_;     // with any modifier
    std::array<ReleaseRow, 5> editRows_;    // with Ctrl alone
    std::array<ReleaseRow, 7> releaseRows_; // with any modifier
};

} // namespace editor
