#include "drafts/letters.h"
#include "drafts/read/cues.h"
#include "drafts/read/forms.h"

#include <algorithm>
#include <array>

namespace drafts {

namespace {

// A block that the standard defines beside the cues.
bool isOtherBlock(TextView line) {
    static constexpr std::array<TextView, 3> words = {u"NOTE", u"STYLE", u"REGION"};
    return std::any_of(words.begin(), words.end(), [&](TextView word) {
        return line.substr(0, word.size()) == word &&
               (line.size() == word.size() || isBlank(line[word.size()]));
    });
}

} // namespace

// Blocks end at blank lines; a line of times begins a cue even where the blank line is missing.
Draft readWebVtt(TextView text) {
    Draft draft;
    draft.form = Form::WebVtt;
    std::vector<Cue> cues;
    enum class In { Head, Gap, Cue, Note, Unknown } in = In::Head;
    std::size_t outside = 0; // the line of text that may be the name of a cue
    std::size_t number = 0;
    const auto endUnknown = [&] {
        if (outside > 0)
            draft.note(Fault::TextOutside, outside);
        outside = 0;
    };
    for (const TextView line : lines(text)) {
        ++number;
        if (in == In::Note && !stripped(line).empty())
            continue;
        if (auto cue = timeLine(line, number, u'.', draft)) {
            if (outside + 1 != number)
                endUnknown();
            outside = 0;
            cues.push_back(std::move(*cue));
            in = In::Cue;
        } else if (in == In::Cue ? line.empty()
                                 : stripped(line).empty()) { // a space in a cue is a line of it
            endUnknown();
            in = In::Gap;
        } else if (in == In::Cue) {
            cues.back().lines.push_back(line);
        } else if (in == In::Gap && isOtherBlock(line)) {
            in = In::Note;
        } else if (in == In::Gap) {
            in = In::Unknown;
            outside = number;
        }
    }
    endUnknown();
    addCues(cues, Tags::Cues, draft);
    return draft;
}

} // namespace drafts
