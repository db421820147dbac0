// A transcript as the editor has it: a formatted text, and where its words are spoken.
#pragma once

#include "drafts/turns.h"
#include "rtf/document.h"

#include <cstdint>
#include <vector>

namespace drafts {

// A word of a document. Positions count the units of rtf::Document::text; an editor whose paragraph ends take
// two units adds twice the paragraph's number.
struct TimedWord {
    std::uint32_t paragraph = 0;
    MomentOfText word;

    bool operator==(const TimedWord&) const = default;
};

struct Transcript {
    rtf::Document document;
    std::vector<TimedWord> words; // in the order of the text, without overlap
    Text recording;               // name of its file, where the draft tells it
};

// How the text of a draft looks.
struct DraftLook {
    Text font = u"Arial";
    std::uint16_t halfPoints = 24;
};

// A paragraph for each turn, with the name and a colon in bold before the first one of a speaker.
Transcript transcript(const std::vector<Turn>& turns, const DraftLook& look);

// The paragraphs of a document that hold text. Names before a colon become speakers, who go on until the next
// name; time stamps, pictures and hidden text are left out. Words whose letters are left out are left out as
// well.
std::vector<Turn> turns(const Transcript& transcript);

} // namespace drafts
