#pragma once

#include <QTextDocument>
#include <cstdint>

namespace desktop {

// The range of a document that contains all changes since the last take().
class ChangedStretch {
public:
    // Called after each change, in the document's units. The document may report more than what really
    // changed.
    void note(const QTextDocument& document, int position, int removed, int added);
    // The whole text has been replaced by that of `document`.
    void noteAll(const QTextDocument& document);

    struct Range {
        std::int32_t begin = 0;
        std::int32_t removed = 0; // units that stood here before
        std::int32_t added = 0;   // units that stand here now
    };
    struct Both {
        Range program;  // in the program's units
        Range document; // in the document's units
    };
    Both take();

private:
    void add(const Both& change);

    Both both_;
    bool isEmpty_ = true;
    std::int32_t length_ = 0; // of the program's text after the last noted change
};

} // namespace desktop
