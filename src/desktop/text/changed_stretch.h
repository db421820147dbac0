#pragma once

#include <QTextDocument>
#include <cstdint>

namespace desktop {

// The stretch of a document in which all changes lie since it was last taken.
class ChangedStretch {
public:
    // The document tells of a change when it is done, in its own units; what it tells may be more than what
    // changed.
    void note(const QTextDocument& document, int position, int removed, int added);
    // All of the text gave way to this document's.
    void noteAll(const QTextDocument& document);

    struct Range {
        std::int32_t begin = 0;
        std::int32_t removed = 0; // units that stood here
        std::int32_t added = 0;   // units that stand here now
    };
    struct Both {
        Range program;  // in units of the program
        Range document; // in those of the document
    };
    Both take();

private:
    void add(const Both& change);

    Both both_;
    bool isEmpty_ = true;
    std::int32_t length_ = 0; // of the program's text as it was last told
};

} // namespace desktop
