// Whatever bytes are read: words lie in their text, in order and with times that can be; what is made of them
// comes back from a document and from JSON; captions keep the rules.
#include "drafts/read/reader.h"
#include "drafts/transcript.h"
#include "drafts/write/texts.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

void expect(bool holds) {
    if (!holds)
        std::abort();
}

template <typename Words>
void expectInside(const Words& words, std::size_t size) {
    std::size_t end = 0;
    for (const auto& word : words) {
        expect(word.begin >= end && word.length > 0);
        end = std::size_t{word.begin} + word.length;
        expect(end <= size);
    }
}

void expectReadable(const std::vector<drafts::Turn>& turns) {
    drafts::Ms end = 0;
    for (const drafts::Caption& caption : drafts::captions(turns, {}).captions) {
        expect(caption.startMs >= end && caption.endMs > caption.startMs &&
               caption.endMs - caption.startMs <= 7000);
        expect(!caption.lines.empty() && caption.lines.size() <= 2);
        end = caption.endMs;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const base::CodePage page(1252);
    try {
        const drafts::Draft draft =
            drafts::read(std::string(reinterpret_cast<const char*>(data), size), page);
        for (const drafts::Segment& segment : draft.segments) {
            expect(!segment.text.empty() && segment.speaker < static_cast<int>(draft.speakers.size()));
            expectInside(segment.words, segment.text.size());
            expectInside(segment.styles, segment.text.size());
        }
        const std::vector<drafts::Turn> turns = drafts::turns(draft, {});
        for (const drafts::Turn& turn : turns) {
            expectInside(turn.words, turn.text.size());
            for (const drafts::MomentOfText& word : turn.words)
                expect(word.moment.start >= 0 &&
                       (word.moment.end < 0 || word.moment.end >= word.moment.start));
        }
        const std::string json = drafts::json(turns);
        expect(drafts::json(drafts::turns(drafts::read(json, page), {})) == json);
        const drafts::Transcript transcript = drafts::transcript(turns, {});
        for (const drafts::Turn& turn : drafts::turns(transcript))
            expectInside(turn.words, turn.text.size());
        expectReadable(turns);
    } catch (const drafts::Damage&) {
    }
    return 0;
}
