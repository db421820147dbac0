#include "editor/typing.h"

namespace editor {

namespace {

constexpr int typingWatch = 1300; // ms

} // namespace

Typing::Typing(Form2& form, Document& document, UndoRedo& undoRedo, player::Form1& player)
    : document_(document), undoRedo_(undoRedo), player_(player) {
    form.RTB.Change = [this] { RTB_Change(); };
    form.RTB.Formatted = [this] { document_.TestoModificato = 1; };
    form.mnuAnnulla.Click = [this] { mnuAnnulla_Click(); };
    form.mnuRipeti.Click = [this] { mnuRipeti_Click(); };
}

void Typing::Form_Load() {
    undoRedo_.RegistraUndo = true;
    // The record of the empty text, which undo never removes, is created by the same routine as all others.
    // Therefore a new editor counts as modified.
    RTB_Change();
}

void Typing::RTB_Change() {
    document_.TestoModificato = 1;
    // Extends the current phase of the timed cycle while the user types.
    if (player_.mnuNoPlayOnWrite.checked)
        player_.Timer6.setInterval(typingWatch);
    if (undoRedo_.RegistraUndo)
        undoRedo_.record();
    Typed();
}

void Typing::mnuAnnulla_Click() {
    undoRedo_.EseguiUndo();
    document_.TestoModificato = 1;
}

void Typing::mnuRipeti_Click() {
    undoRedo_.EseguiRedo();
}

} // namespace editor
