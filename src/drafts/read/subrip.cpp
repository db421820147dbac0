#include "drafts/letters.h"
#include "drafts/read/cues.h"
#include "drafts/read/forms.h"

#include <algorithm>

namespace drafts {

namespace {

bool isNumber(TextView line) {
    line = stripped(line);
    return !line.empty() &&
           std::all_of(line.begin(), line.end(), [](char16_t unit) { return unit >= u'0' && unit <= u'9'; });
}

// Takes blank lines and the number of the next cue off the end of a cue's lines.
void dropNumber(std::vector<TextView>& text, bool nextCueFollows) {
    const auto dropBlank = [&] {
        while (!text.empty() && stripped(text.back()).empty())
            text.pop_back();
    };
    if (nextCueFollows && !text.empty() && isNumber(text.back()))
        text.pop_back();
    dropBlank();
}

} // namespace

// A cue goes on until the number before the next line of times: a blank line inside it takes no text away.
Draft readSubRip(TextView text) {
    Draft draft;
    draft.form = Form::SubRip;
    std::vector<Cue> cues;
    std::vector<TextView> before;
    std::size_t number = 0;
    for (const TextView line : lines(text)) {
        ++number;
        std::vector<TextView>& owner = cues.empty() ? before : cues.back().lines;
        if (auto cue = timeLine(line, number, u',', draft)) {
            dropNumber(owner, true);
            cues.push_back(std::move(*cue));
        } else {
            owner.push_back(line);
        }
    }
    if (!before.empty())
        draft.note(Fault::TextOutside, 1);
    if (!cues.empty())
        dropNumber(cues.back().lines, false);
    addCues(cues, Tags::Styles, draft);
    return draft;
}

} // namespace drafts
