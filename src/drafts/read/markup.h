// Tags and entities in the text of cues and of HTML.
#pragma once

#include "drafts/draft.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace drafts {

// The text of a cue without its tags, and what the tags said.
struct CueText {
    struct Stamp {
        std::size_t at = 0; // of the first unit that is heard from then on
        Ms ms = 0;
    };
    struct Voice {
        std::size_t at = 0;
        Text name; // empty where a voice ends
    };

    Text text; // one space for each run of blanks, none at the ends
    std::vector<Stamp> stamps;
    std::vector<Voice> voices;
    std::vector<StyledPart> styles; // by <b>, <i> and <u>, without overlap
};

// Stands behind a bracket in SubRip that begins no tag; takes no room and breaks no line.
inline constexpr char16_t noTag = u'\u2060';

enum class Tags : std::uint8_t {
    Styles, // <i>, <font ...>, {\an8}: letters behind the bracket
    Cues,   // WebVTT: every <...>, with voices and times
};

// Takes the tags out and decodes the entities. A bracket that nothing closes stays.
CueText cueText(TextView marked, Tags tags);

// The entity at the head of the text ("&amp;", "&#8230;") and its length; none when there is none that is
// known.
struct Entity {
    Text text;
    std::size_t length = 0;
};
std::optional<Entity> entityAtHead(TextView text);

} // namespace drafts
