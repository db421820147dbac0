#pragma once

#include <QTextDocument>

namespace desktop {

// The paragraphs in which all changes of a document lie since they were last taken, formats included.
class ChangedParagraphs {
public:
    // The document reports a change when it is done, in its own units.
    void note(const QTextDocument& document, int position, int added);
    // The document gave way to another.
    void noteAll() { whole_ = changed_ = true; }

    struct Range {
        int first = 0;
        int removed = 0;  // paragraphs that stood here
        int inserted = 0; // paragraphs that stand here now
        bool whole = false;
    };
    bool changed() const { return changed_; }
    Range take(const QTextDocument& document);

private:
    bool changed_ = false;
    bool whole_ = true;
    int first_ = 0; // paragraphs before all changes
    int tail_ = 0;  // and behind them
    int known_ = 0; // paragraphs of the document when they were last taken
};

} // namespace desktop
