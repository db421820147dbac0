#pragma once

#include "editor/document.h"
#include "editor/undo_redo.h"
#include "player/form1.h"

namespace editor {

// What every change of the text sets off, by whomever it was made, and the commands that take it back.
class Typing {
public:
    Typing(Form2& form, Document& document, UndoRedo& undoRedo, player::Form1& player);

    // After the document's own.
    void Form_Load();
    void RTB_Change();
    void mnuAnnulla_Click();
    void mnuRipeti_Click();

private:
    Document& document_;
    UndoRedo& undoRedo_;
    player::Form1& player_;
};

} // namespace editor
