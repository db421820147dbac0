#pragma once

#include <QTextDocument>

namespace desktop {

// The range of paragraphs that contains all changes of a document since the last take(), changes of format
// included.
class ChangedParagraphs {
public:
    // Called after each change. `position` and `added` are in the document's units.
    void note(const QTextDocument& document, int position, int added);
    // The whole document has been replaced.
    void noteAll() { whole_ = changed_ = true; }

    struct Range {
        int first = 0;
        int removed = 0;  // paragraphs that stood here before
        int inserted = 0; // paragraphs that stand here now
        bool whole = false;
    };
    bool changed() const { return changed_; }
    Range take(const QTextDocument& document);

private:
    bool changed_ = false;
    bool whole_ = true;
    int first_ = 0; // unchanged paragraphs before all changes
    int tail_ = 0;  // unchanged paragraphs after all changes
    int known_ = 0; // number of paragraphs at the last take()
};

} // namespace desktop
