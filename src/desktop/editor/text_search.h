#pragma once

#include "base/text.h"

#include <optional>

class QTextDocument;

namespace desktop {

// A stretch of a document, in its own units.
struct TextRange {
    int begin = 0;
    int end = 0;

    bool operator==(const TextRange&) const = default;
};

// How a text is looked for.
struct SearchOptions {
    bool wholeWords = false; // by Unicode's rule of where words begin and end
    bool matchCase = false;  // else letters of any script are equal in both cases
};

// The first place at or after `from` that holds `wanted`, which may span paragraphs. No more than the
// paragraph that is looked at is copied.
std::optional<TextRange> findText(const QTextDocument& document, base::TextView wanted, int from,
                                  SearchOptions options);

} // namespace desktop
