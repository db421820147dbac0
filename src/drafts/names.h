// Names of speakers, as transcripts write them before what was said.
#pragma once

#include "drafts/draft.h"

#include <cstddef>

namespace drafts {

// True for one to four words that look like a name: "Anna", "SPEAKER 1", "Dr. van Dyke", "[M2]".
bool isName(TextView text);

// A name and a colon at the head of a text.
struct NamedText {
    TextView name;          // empty when the text does not begin so
    std::size_t behind = 0; // where what was said begins
};
NamedText nameAtHead(TextView text);
// The same for a text whose first units are bold: a name and its colon that alone are bold are a name
// whatever it looks like.
NamedText nameAtHead(TextView text, std::size_t bold);

} // namespace drafts
