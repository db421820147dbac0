#pragma once

#include "editor/form2.h"

namespace editor {

// The editor window as a window: where it opens, how its text fills it, and that closing it only hides it.
class EditorWindow {
public:
    EditorWindow(Form2& form, controls::Window& player, const controls::Screen& screen,
                 controls::MenuItem& showHideCommand);

    // Opens directly below the player; never larger than the rest of the screen.
    void Form_Load();
    // Makes the window fit between its place and the end of its screen. It is never moved; one that begins
    // beyond the end keeps its size.
    void keepOnScreen();
    void Form_Resize();
    // The text, the flags and the records of undo stay.
    bool Form_Unload();

    // Writes the language table to the menus; the tools menu is never shown.
    void CambiaLingua2();

private:
    Form2& form_;
    controls::Window& player_;
    const controls::Screen& screen_;
    controls::MenuItem& mnuMostraNascondi_;
};

} // namespace editor
