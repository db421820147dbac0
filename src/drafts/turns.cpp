#include "drafts/turns.h"

#include "drafts/letters.h"
#include "drafts/names.h"
#include "drafts/spread.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace drafts {

namespace {

// Takes names that stand in the text out of it. Such a speaker goes on until the next name.
void takeNames(Draft& draft) {
    std::int32_t current = noSpeaker;
    for (Segment& segment : draft.segments) {
        if (segment.speaker != noSpeaker) {
            current = noSpeaker;
            continue;
        }
        const NamedText named = nameAtHead(segment.text);
        if (!named.name.empty())
            current = draft.speaker(named.name);
        segment.speaker = current;
        const auto behind = static_cast<std::uint32_t>(named.behind);
        segment.styles = stylesOf(segment.styles, behind, segment.text.size(), 0);
        segment.text.erase(0, behind);
        std::erase_if(segment.words, [&](const Word& word) { return word.begin + word.length <= behind; });
        for (Word& word : segment.words) {
            const std::uint32_t cut = behind > word.begin ? behind - word.begin : 0;
            word.begin -= behind - cut;
            word.length -= cut;
        }
    }
}

moments::Moment momentOf(const Word& word) {
    moments::Moment moment;
    moment.start = word.startMs;
    moment.end = word.endMs == noTime ? moments::Moment::noEnd : word.endMs;
    if (word.confidence != noConfidence)
        moment.confidence = static_cast<std::uint8_t>(std::lround(word.confidence * 100));
    return moment;
}

// Puts paragraphs together from segments.
class TurnBuilder {
public:
    TurnBuilder(const Draft& draft, const TurnOptions& options) : draft_(draft), options_(options) {}

    void add(const Segment& segment) {
        const Text speaker = segment.speaker == noSpeaker
                                 ? Text()
                                 : draft_.speakers[static_cast<std::size_t>(segment.speaker)];
        if (turns_.empty() || segment.newParagraph || speaker != turns_.back().speaker)
            begin(speaker);
        else if (!segment.joined && needsBlankBetween(turns_.back().text, segment.text))
            turns_.back().text += u' ';
        const std::vector<Word> words = draft_.exact ? segment.words : spreadWords(segment);
        std::uint32_t from = 0;
        for (const Word& word : words) {
            const bool pauses = !draft_.hasParagraphs && heardMs_ != noTime && word.startMs != noTime &&
                                word.startMs - heardMs_ >= options_.pauseMs;
            if (pauses) {
                append(segment, from, word.begin);
                from = word.begin;
                if (!stripped(turns_.back().text).empty())
                    begin(speaker);
            }
            if (word.startMs != noTime) {
                const auto offset = static_cast<std::uint32_t>(turns_.back().text.size()) - from;
                turns_.back().words.push_back({word.begin + offset, word.length, momentOf(word)});
                heardMs_ = std::max(word.startMs, word.endMs);
            }
        }
        append(segment, from, static_cast<std::uint32_t>(segment.text.size()));
    }

    std::vector<Turn> finish() && {
        trimLast();
        return std::move(turns_);
    }

private:
    void append(const Segment& segment, std::uint32_t from, std::uint32_t to) {
        Turn& turn = turns_.back();
        for (const StyledPart& part : stylesOf(segment.styles, from, to, turn.text.size()))
            turn.styles.push_back(part);
        turn.text += TextView(segment.text).substr(from, to - from);
    }

    void begin(const Text& speaker) {
        trimLast();
        turns_.push_back({speaker, {}, {}});
    }

    void trimLast() {
        while (!draft_.exact && !turns_.empty() && !turns_.back().text.empty() &&
               isBlank(turns_.back().text.back()))
            turns_.back().text.pop_back();
    }

    const Draft& draft_;
    const TurnOptions& options_;
    std::vector<Turn> turns_;
    Ms heardMs_ = noTime; // the end of the last word with a time
};

} // namespace

std::vector<Turn> turns(Draft draft, const TurnOptions& options) {
    if (!draft.exact && draft.form != Form::Words && draft.form != Form::Segments)
        takeNames(draft);
    shareCueTimes(draft.segments);
    TurnBuilder builder(draft, options);
    for (const Segment& segment : draft.segments)
        builder.add(segment);
    return std::move(builder).finish();
}

} // namespace drafts
