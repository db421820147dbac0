// moment_rows FILE prints the words of a document as the editor opens it, one a line: the moment in ms, a tab
// and the word. A moment between those of its neighbours is written as "~2500", none at all as "-".
// moment_rows --open DRAFT prints a recogniser's draft as the RTF that the editor opens it as.
#include "base/files.h"
#include "drafts/editor_text.h"
#include "drafts/read/reader.h"
#include "moments/stamps.h"
#include "moments/word_units.h"
#include "rtf/read/reader.h"

#include <cstdio>
#include <exception>
#include <string>
#include <string_view>

namespace {

std::string rows(const std::string& bytes) {
    base::Text text = base::fromUtf8(bytes);
    std::optional<moments::Layer> layer;
    if (rtf::isRtf(bytes)) {
        const rtf::Document document = rtf::read(bytes);
        text = base::replaced(rtf::plainText(document), u"\n", u"\r\n");
        layer = moments::unpack(document.moments, text);
    }
    moments::WordMoments words;
    words.apply(0, 0, layer ? layer->timed : moments::momentsOfStamps(text));
    std::string out;
    moments::forEachWord(text, [&](std::size_t begin, base::TextView word) {
        const auto first = static_cast<std::int32_t>(begin);
        const auto end = first + static_cast<std::int32_t>(word.size());
        const auto moment = words.estimate(first, end);
        out += words.first(first, end) ? "" : moment ? "~" : "-";
        out += (moment ? std::to_string(moment->start) : "") + '\t' + base::toUtf8(word) + '\n';
    });
    return out;
}

std::string opened(const std::string& draft) {
    return drafts::source(drafts::transcript(drafts::turns(drafts::read(draft, base::CodePage()), {}), {}),
                          {});
}

} // namespace

int main(int count, char** arguments) {
    const bool opens = count == 3 && std::string_view(arguments[1]) == "--open";
    if (count != (opens ? 3 : 2)) {
        std::fputs("Usage: moment_rows [--open] FILE\n", stderr);
        return 2;
    }
    try {
        const std::string bytes = base::readFile(base::fromUtf8(arguments[count - 1]));
        const std::string text = opens ? opened(bytes) : rows(bytes);
        return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() ? 0 : 1;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s: %s\n", arguments[count - 1], failure.what());
        return 1;
    }
}
