// draft_rows FILE prints the cues of a subtitle file or the words of a recogniser's draft, one a line: start
// in ms, end in ms, text, with tabs between; "-" where the file gives no time. What was odd goes to the
// standard error. A file without any row is a failure.
#include "base/files.h"
#include "drafts/letters.h"
#include "drafts/read/reader.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <string>

namespace {

using drafts::Draft;
using drafts::Ms;
using drafts::Segment;

std::string time(Ms ms) {
    return ms == drafts::noTime ? "-" : std::to_string(ms);
}

std::string row(Ms startMs, Ms endMs, base::TextView text) {
    return time(startMs) + '\t' + time(endMs) + '\t' + base::toUtf8(drafts::collapsed(text)) + '\n';
}

std::string rows(const Draft& draft) {
    const bool byWord = draft.form == drafts::Form::Words || draft.form == drafts::Form::RollingCaptions;
    std::string out;
    for (std::size_t i = 0; i < draft.segments.size(); ++i) {
        const Segment& segment = draft.segments[i];
        if (byWord && !segment.words.empty()) {
            for (const drafts::Word& word : segment.words)
                out += row(word.startMs, word.endMs,
                           base::TextView(segment.text).substr(word.begin, word.length));
            continue;
        }
        base::Text text = segment.text;
        while (i + 1 < draft.segments.size() && draft.segments[i + 1].continues)
            (text += u' ') += draft.segments[++i].text;
        // Text in front of the first stamp has no row.
        if (segment.startMs != drafts::noTime || draft.form == drafts::Form::Segments)
            out += row(segment.startMs, segment.endMs, text);
    }
    return out;
}

} // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::fputs("Usage: draft_rows FILE\n", stderr);
        return 2;
    }
    try {
        const Draft draft = drafts::read(base::readFile(base::fromUtf8(arguments[1])), base::CodePage());
        for (const drafts::Remark& remark : draft.remarks)
            std::fprintf(stderr, "%s: line %zu: %s (%zu)\n", arguments[1], remark.line,
                         drafts::description(remark.fault), remark.count);
        const std::string text = rows(draft);
        return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() ? 0 : 1;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s: %s\n", arguments[1], failure.what());
        return 1;
    }
}
