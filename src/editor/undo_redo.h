#pragma once

#include "editor/snapshot_text.h"
#include "platform/rich_text.h"

#include <deque>

namespace editor {

// The state of the text after a change.
struct UndoElement {
    std::int32_t SelStart = 0; // the caret after the change
    std::int32_t TextLen = 0;  // length of Text
    SnapshotText Text;
};

// The text by which two successive states differ: the part of the longer one that ends before `posizione`
// (counted from 1) and is as long as their difference. It does not compare the texts. Throws base::Failure if
// that part would start before the text.
base::Text DifferenzaTesto(const SnapshotText& a, const SnapshotText& b, std::int32_t posizione);

// Undo and redo of the plain text: one record per change, unlimited. Formats are neither recorded nor
// restored.
class UndoRedo {
public:
    explicit UndoRedo(platform::RichText& text) : RTB_(text) {}

    // Records the current text after a change, and clears the redo list.
    void record();

    void EseguiUndo();
    void EseguiRedo();

    const std::deque<UndoElement>& ListaUndo() const { return undo_; }
    const std::deque<UndoElement>& ListaRedo() const { return redo_; }
    // Memory of all records' texts, in bytes.
    std::size_t bytes() const { return store_.bytes(); }

    bool RegistraUndo = false; // changes are recorded, and undo and redo may run

private:
    // The control's current text.
    const SnapshotText& current();
    void undoLast();
    void redoLast();
    // takeOut removes a range; putIn inserts text and leaves it selected unless it is a letter or a line
    // break.
    void takeOut(std::int32_t position, std::int32_t length);
    void putIn(std::int32_t position, const base::Text& chg);

    platform::RichText& RTB_;
    SnapshotStore store_;
    SnapshotText text_{store_}; // the control's text when its changes were last queried
    std::deque<UndoElement> undo_;
    std::deque<UndoElement> redo_;
};

} // namespace editor
