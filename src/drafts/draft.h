// What a recogniser or a subtitle file tells, as plain data. Positions and lengths are in UTF-16 units.
#pragma once

#include "base/carry_on.h"
#include "base/text.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <vector>

namespace drafts {

using base::Text;
using base::TextView;

using Ms = std::int32_t; // milliseconds of the recording

inline constexpr Ms noTime = -1;
inline constexpr float noConfidence = -1;
inline constexpr std::int32_t noSpeaker = -1;

// A part of a segment's text for which the file has times: mostly one word, sometimes a few.
struct Word {
    std::uint32_t begin = 0;
    std::uint32_t length = 0;
    Ms startMs = noTime;
    Ms endMs = noTime;
    float confidence = noConfidence; // 0 to 1

    bool operator==(const Word&) const = default;
};

// Letters of a text that are bold, in italics or underlined.
struct StyledPart {
    std::uint32_t begin = 0;
    std::uint32_t length = 0;
    bool bold = false;
    bool italic = false;
    bool underline = false;

    bool operator==(const StyledPart&) const = default;
};

// The styles of a part of a text, for a text in which that part begins at `place`.
std::vector<StyledPart> stylesOf(const std::vector<StyledPart>& styles, std::size_t begin, std::size_t end,
                                 std::size_t place);

// What one speaker says in one piece: a cue, a segment, a chunk, or the text behind a stamp.
struct Segment {
    Text text;
    std::int32_t speaker = noSpeaker; // index in Draft::speakers
    Ms startMs = noTime;
    Ms endMs = noTime;
    float confidence = noConfidence;
    bool continues = false;    // part of the same cue as the one before, which has the times of both
    bool joined = false;       // no blank stands between the one before and this one
    bool newParagraph = false; // the file itself begins a paragraph here
    std::vector<Word> words;   // in the order of the text, without overlap; none where the file has none
    std::vector<StyledPart> styles{}; // likewise

    bool operator==(const Segment&) const = default;
};

enum class Form : std::uint8_t { SubRip, WebVtt, RollingCaptions, Segments, Words, Html, StampedText };

// What is wrong with a file, or odd about it.
enum class Fault : std::uint8_t {
    UnknownForm,     // none of the forms that are read
    NotJson,         // JSON that ends early or breaks its rules
    UnknownJson,     // sound JSON without any of the lists that are known
    NoTimes,         // a known form, but nothing in it has a time
    UnreadableTime,  // a line of times that cannot be read
    OtherTimeFormat, // a time with the wrong separator of its fraction, which was read all the same
    EndBeforeStart,  // a cue that would end before it starts; it ends at its start now
    NoText,          // a cue without text, which was left out
    TextOutside,     // text that belongs to no cue, which was left out
    BadLetters,      // bytes that are no letters of the encoding, shown as U+FFFD
};

// The fault in English, without the line.
const char* description(Fault fault);

struct Remark {
    Fault fault = Fault::UnknownForm;
    std::size_t line = 0;  // of the first time, counted from 1
    std::size_t count = 1; // how often

    bool operator==(const Remark&) const = default;
};

struct Draft {
    Form form = Form::Segments;
    Text recording; // name of its file; empty where the draft does not tell it
    std::vector<Text> speakers;
    std::vector<Segment> segments; // in the order of the file
    std::vector<Remark> remarks;   // what was odd, each fault once
    bool hasParagraphs = false;    // the file has paragraphs of its own: pauses begin none
    bool exact = false;            // it was exported by this program: blanks and words without times stay so

    // The index of a speaker, who is added at the first mention; noSpeaker for an empty name.
    std::int32_t speaker(TextView name);

    void note(Fault fault, std::size_t line);

private:
    std::map<Text, std::int32_t, std::less<>> speakerIndex_;
};

// A file that cannot be read; what() is English and tells the line.
class Damage : public base::Failure {
public:
    Damage(Fault fault, std::size_t line);

    Remark remark() const { return remark_; }

private:
    Remark remark_;
};

// Thrown when the user cancels the reading of a draft.
class Cancelled : public base::Failure {
public:
    Cancelled() : Failure("cancelled") {}
};

} // namespace drafts
