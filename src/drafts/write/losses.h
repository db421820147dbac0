// What forms that hold plain text leave out.
#pragma once

#include "drafts/write/documents.h"

namespace drafts {

// What of the document is more than text. Bold counts as text: it marks the names of the speakers.
Losses lossesOfText(const rtf::Document& document);

} // namespace drafts
