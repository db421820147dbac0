// A transcript as RTF with a layer of moments, which is how the editor opens and gives a text.
#pragma once

#include "drafts/transcript.h"
#include "moments/layer.h"

#include <string>
#include <string_view>

namespace drafts {

// The transcript as RTF; `recording` tells what its words belong to, see moments::Layer.
std::string source(Transcript transcript, moments::Layer recording);

// The same as a piece to insert: RTF, and what stands beside its letters (platform::RichText::Beside).
struct Fragment {
    std::string source;
    std::string beside;
};
Fragment fragment(const Transcript& transcript, moments::Layer recording);

// The transcript that the editor wrote as RTF. A text without a layer has no words with moments.
Transcript transcript(std::string_view source);

} // namespace drafts
