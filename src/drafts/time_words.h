// Times for a text that somebody typed, from what a recogniser heard in the same recording.
#pragma once

#include "drafts/turns.h"

#include <cstddef>
#include <vector>

namespace drafts {

// A word as a recogniser heard it.
struct HeardWord {
    Text text;
    moments::Moment moment; // with an end
};

// The words of a draft, in order.
std::vector<HeardWord> heardWords(Draft draft);

struct TimedText {
    std::vector<MomentOfText> words; // each spoken word, in the order of the text
    std::size_t found = 0;           // of which the recogniser heard the very word
};

// Aligns the words of a text with those that were heard. A word that was heard has its time and confidence;
// the words between two of these share the time of what was heard instead of them by their letters, or the
// time between them. Names before a colon, time stamps and signs alone are not spoken. Without any word in
// common the result is empty. `text` is in the editor's units, paragraphs end with CR LF.
TimedText timeWords(TextView text, const std::vector<HeardWord>& heard);

} // namespace drafts
