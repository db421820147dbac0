#pragma once

#include "editor/document.h"
#include "editor/undo_redo.h"
#include "player/form1.h"

namespace editor {

// Reacts to every change of the text, including the program's own, and runs undo and redo.
class Typing {
public:
    Typing(Form2& form, Document& document, UndoRedo& undoRedo, player::Form1& player);

    // Must run after the document's Form_Load.
    void Form_Load();
    void RTB_Change();
    void mnuAnnulla_Click();
    void mnuRipeti_Click();

    // Called after every change of the text.
    std::function<void()> Typed = [] {};

private:
    Document& document_;
    UndoRedo& undoRedo_;
    player::Form1& player_;
};

} // namespace editor
