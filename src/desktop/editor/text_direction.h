#pragma once

#include <QTextDocument>

namespace desktop {

// Qt looks at the letters of a paragraph whenever it goes over it, to tell from which side it runs; and at
// each key it goes over all paragraphs behind the caret. A long text without a letter of the scripts that run
// from the right is told to have none, which cuts the cost of a key at its start by half.
class TextDirection {
public:
    // A document that is about to be shown.
    void begin(QTextDocument& document);
    // Text that went into it, and the end of that edit.
    void noteInserted(QStringView text);
    void settle(QTextDocument& document);

private:
    bool fromTheLeft_ = false; // the document was told so
    bool isTrue_ = false;      // and it is so still
};

} // namespace desktop
