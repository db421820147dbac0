#pragma once

#include "editor/form2.h"

namespace editor {

// The editor window's geometry and visibility: where it opens, how its parts fill it, and that closing hides
// it.
class EditorWindow {
public:
    EditorWindow(Form2& form, controls::Window& player, const controls::Screen& screen,
                 controls::MenuItem& showHideCommand);

    // Opens directly below the player, at most as large as the rest of the screen.
    void Form_Load();
    // Shrinks the window so that it ends within its screen. It never moves; a window that starts beyond the
    // edge keeps its size.
    void keepOnScreen();
    void Form_Resize();
    // Only hides the window: the text, the flags and the undo records stay.
    bool Form_Unload();

    // Writes the language table to the menus. The tools menu stays hidden.
    void CambiaLingua2();

private:
    Form2& form_;
    controls::Window& player_;
    const controls::Screen& screen_;
    controls::MenuItem& mnuMostraNascondi_;
};

} // namespace editor
