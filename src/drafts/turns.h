// A transcript as paragraphs of speakers with timed words: what drafts become and what exports begin with.
#pragma once

#include "drafts/draft.h"
#include "moments/moment.h"

#include <cstdint>
#include <vector>

namespace drafts {

using moments::MomentOfText;

// A paragraph. A speaker may have several in a row.
struct Turn {
    Text speaker;                     // empty when nobody is known
    Text text;                        // without the name
    std::vector<MomentOfText> words;  // in the order of the text, without overlap
    std::vector<StyledPart> styles{}; // likewise

    bool operator==(const Turn&) const = default;
};

// User options for the paragraphs of a draft.
struct TurnOptions {
    Ms pauseMs = 1500; // a pause of this length begins a paragraph
};

// The paragraphs of a draft: a new one for each change of speaker, at each pause, and where the file has one.
// Words without times of their own get them from what is around them, shared out by their letters.
std::vector<Turn> turns(Draft draft, const TurnOptions& options);

} // namespace drafts
