// What the lists of a recogniser's JSON hold, whatever its dialect.
#pragma once

#include "drafts/draft.h"

#include <array>
#include <string>
#include <vector>

namespace drafts {

// The lists that are known by their names in the outermost object; an array without such an object counts as
// segments.
enum class ListKind : std::uint8_t { Segments, Words, Chunks, Transcription, Speakers, WordSegments };
inline constexpr std::size_t listKinds = 6;

// A word, or a token of one.
struct JsonPart {
    Text text;
    std::int32_t speaker = noSpeaker;
    double startMs = noTime;
    double endMs = noTime;
    float confidence = noConfidence;
};

// A segment, a chunk, or a word of a list of its own.
struct JsonItem : JsonPart {
    std::vector<JsonPart> parts;
    bool partsAreTokens = false;
    bool newParagraph = false;
};

struct JsonLists {
    std::array<std::vector<JsonItem>, listKinds> lists;
    std::string text;   // of the outermost object, UTF-8
    bool exact = false; // the file was exported by this program

    std::vector<JsonItem>& operator[](ListKind kind) { return lists[static_cast<std::size_t>(kind)]; }
};

// Makes segments of the lists: of the one that tells most, with what the others add. The speakers of the
// draft are known already.
void addItems(JsonLists& lists, Draft& draft);

} // namespace drafts
