#pragma once

#include "editor/snapshot_text.h"
#include "platform/rich_text.h"

#include <deque>

namespace editor {

// The text as a change left it.
struct UndoElement {
    std::int32_t SelStart = 0; // the caret behind the change
    std::int32_t TextLen = 0;  // Len(Text)
    SnapshotText Text;
};

// The text by which two neighbouring states differ: a run of the longer one that ends before `posizione`,
// counted from 1. It compares nothing. Throws base::Failure for a run that would begin before the text.
base::Text DifferenzaTesto(const SnapshotText& a, const SnapshotText& b, std::int32_t posizione);

// Undo and redo of the plain text, a record a change, without a limit of depth. Formats are neither recorded
// nor restored.
class UndoRedo {
public:
    explicit UndoRedo(platform::RichText& text) : RTB_(text) {}

    // Records the text as a change has left it, which ends the redo chain.
    void record();

    void EseguiUndo();
    void EseguiRedo();

    const std::deque<UndoElement>& ListaUndo() const { return undo_; }
    const std::deque<UndoElement>& ListaRedo() const { return redo_; }
    // Bytes that the texts of all records take together.
    std::size_t bytes() const { return store_.bytes(); }

    bool RegistraUndo = false; // changes are recorded, and undo and redo may run

private:
    // What the control holds now.
    const SnapshotText& current();
    void undoLast();
    void redoLast();
    // Takes out what stands there; puts text in, and leaves a longer one selected.
    void takeOut(std::int32_t position, std::int32_t length);
    void putIn(std::int32_t position, const base::Text& chg);

    platform::RichText& RTB_;
    SnapshotStore store_;
    SnapshotText text_{store_}; // what the control held when it was last asked for its changes
    std::deque<UndoElement> undo_;
    std::deque<UndoElement> redo_;
};

} // namespace editor
