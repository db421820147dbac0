#pragma once

#include "desktop/text/text_units.h"

#include <optional>

class QTextDocument;

namespace desktop {

// How a text is looked for.
struct SearchOptions {
    bool wholeWords = false; // by Unicode's rule of where words begin and end
    bool matchCase = false;  // else letters of any script are equal in both cases
};

// The first place at or after `from` that holds `wanted`, which may span paragraphs.
std::optional<TextRange> findText(const QTextDocument& document, base::TextView wanted, int from,
                                  SearchOptions options);

} // namespace desktop
