#pragma once

#include "drafts/draft.h"
#include "lang/words.h"

namespace drafts {

// What is wrong with a file, as a sentence for the user; the line of the remark replaces "%1".
lang::English sentenceOf(Fault fault);

// The sentence in the program's language.
Text faultText(const lang::Words& words, const Remark& remark);

} // namespace drafts
