// time_words TEXT HEARD prints the words of a text with the times that they get from what a recogniser heard,
// one a line: start in ms, a tab, the word. HEARD is what the recogniser printed, or a draft in any form.
#include "drafts/time_words.h"
#include "base/files.h"
#include "drafts/printed_words.h"
#include "drafts/read/reader.h"

#include <cstdio>
#include <exception>
#include <string>
#include <string_view>

namespace {

using drafts::Draft;

Draft heard(const std::string& bytes) {
    Draft draft;
    draft.form = drafts::Form::Words;
    drafts::PrintedWords printed;
    printed.Arrived = [&](const drafts::Segment& segment) { draft.segments.push_back(segment); };
    std::string_view rest = bytes;
    while (!rest.empty()) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        printed.line(base::fromUtf8(line));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    }
    printed.end();
    return draft.segments.empty() ? drafts::read(bytes, base::CodePage()) : draft;
}

} // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        std::fputs("Usage: time_words TEXT HEARD\n", stderr);
        return 2;
    }
    try {
        const base::Text text = base::fromUtf8(base::readFile(base::fromUtf8(arguments[1])));
        const Draft draft = heard(base::readFile(base::fromUtf8(arguments[2])));
        const drafts::TimedText timed = drafts::timeWords(text, drafts::heardWords(draft));
        for (const drafts::MomentOfText& word : timed.words)
            std::printf("%d\t%s\n", word.moment.start,
                        base::toUtf8(base::TextView(text).substr(word.begin, word.length)).c_str());
        std::fprintf(stderr, "%zu of %zu words were heard\n", timed.found, timed.words.size());
        return timed.words.empty() ? 1 : 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
