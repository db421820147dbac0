#pragma once

#include "editor/snapshot_text.h"
#include "moments/layer.h"
#include "moments/word_moments.h"
#include "platform/rich_text.h"

#include <deque>
#include <functional>
#include <optional>
#include <string>

namespace editor {

// The state of the text after a change.
struct UndoElement {
    std::int32_t SelStart = 0; // the caret after the change
    std::int32_t TextLen = 0;  // length of Text
    SnapshotText Text;
    bool joined = false; // undone and redone together with the record before
};

// The text by which two successive states differ: the part of the longer one that ends before `posizione`
// (counted from 1) and is as long as their difference. It does not compare the texts. Throws base::Failure if
// that part would start before the text.
base::Text DifferenzaTesto(const SnapshotText& a, const SnapshotText& b, std::int32_t posizione);

// Undo and redo of the plain text: one record per change, unlimited. Formats are neither recorded nor
// restored. The moments of the words follow every change, and are stored with the text.
class UndoRedo {
public:
    explicit UndoRedo(platform::RichText& text);

    // Records the current text after a change, and clears the redo list.
    void record();

    // The changes that these edits cause are recorded one by one, but undone and redone together. The caret
    // stays with its letter.
    void asOneStep(const std::function<void()>& edits);

    void EseguiUndo();
    void EseguiRedo();

    const std::deque<UndoElement>& ListaUndo() const { return undo_; }
    const std::deque<UndoElement>& ListaRedo() const { return redo_; }
    // Memory of all records' texts, in bytes.
    std::size_t bytes() const { return store_.bytes(); }

    // The moments of the control's current text.
    moments::WordMoments& moments();
    // Part of the control's current text; positions outside the text are clamped.
    base::Text letters(std::int32_t position, std::int32_t count) { return current().text(position, count); }
    std::int32_t length() { return current().length(); }

    // The next change replaces `removed` units at `position` by letters with these moments, as
    // platform::RichText::Arrives reports them. A position of -1: it does not come.
    void arrives(std::int32_t position, std::int32_t removed, const std::string& beside);
    // The layer of a part of the text; empty if no letter has a moment.
    std::string beside(std::int32_t position, std::int32_t count);

    // The control's current text.
    const SnapshotText& current();
    // Called after each change, with the texts before and after it; empty if nobody follows.
    std::function<void(const SnapshotText& before, const SnapshotText& after,
                       const platform::TextChange& change)>
        Changed;

    // What is heard while a new word is begun, see moments::WordMoments::Heard.
    void momentsHeard(std::function<std::optional<std::int32_t>()> heard);
    // Gives a word its moment in the open recording.
    void setMoment(std::int32_t position, std::int32_t length, const moments::Moment& moment);
    // Gives these words, in the order of the text, their moments in a recording. Moments of another recording
    // are removed.
    void setMoments(const moments::Layer& recording, const std::vector<moments::MomentOfText>& words);
    // The open recording, for the layer: its file name and its length in ms; an empty name for none.
    std::function<moments::Layer()> Recording = [] { return moments::Layer(); };
    // True if the moments belong to another recording than the open one. A renamed file is told by its
    // length.
    bool isOfOtherRecording() const;
    // The file name of the recording that the moments belong to; empty where it is not known.
    const base::Text& recordingOfMoments() const { return layer_.recording; }

    bool RegistraUndo = false; // changes are recorded, and undo and redo may run

private:
    struct Arrival {
        std::int32_t position = 0;
        std::int32_t removed = 0;
        std::string beside;
    };

    // New moments belong to the open recording from now on.
    void adoptRecording();
    void applyToMoments(const platform::TextChange& change, const Arrival* arrival);
    void applyArrival(const platform::TextChange& change, const Arrival& arrival);
    // Runs these edits with one update of the display; the caret stays with its letter.
    void inOneStep(const std::function<void()>& edits);
    // Both move one record to the other list.
    void undoRecord();
    void redoRecord();
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
    moments::WordMoments moments_;
    std::optional<Arrival> arrival_;    // of the next change
    moments::Layer layer_;              // the recording that the moments belong to
    std::optional<std::int32_t> caret_; // of a step, followed through its changes
    bool inStep_ = false;               // several changes are one step
    bool joins_ = false;                // the next one joins the record before
};

} // namespace editor
