#pragma once

#include "desktop/text/text_units.h"

#include <optional>

class QTextDocument;

namespace desktop {

// Options of a search.
struct SearchOptions {
    bool wholeWords = false; // by Unicode's word boundary rules
    bool matchCase = false;  // false: ignores case in all scripts
};

// The first occurrence of `wanted` at or after `from`; it may span paragraphs. Empty if there is none.
std::optional<TextRange> findText(const QTextDocument& document, base::TextView wanted, int from,
                                  SearchOptions options);

} // namespace desktop
