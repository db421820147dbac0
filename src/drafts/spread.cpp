#include "drafts/spread.h"

#include "moments/word_units.h"

#include <algorithm>
#include <cstdint>

namespace drafts {

namespace {

// A place in a text and its time.
struct Point {
    std::uint32_t at = 0;
    Ms ms = 0;
};

Ms between(const Point& first, const Point& last, std::uint32_t at) {
    if (last.at <= first.at)
        return first.ms;
    const std::int64_t way = std::int64_t{last.ms} - first.ms;
    return static_cast<Ms>(first.ms +
                           way * (std::clamp(at, first.at, last.at) - first.at) / (last.at - first.at));
}

std::vector<Word> wordsOf(TextView text) {
    std::vector<Word> words;
    moments::forEachWord(text, [&](std::size_t begin, TextView word) {
        words.push_back({static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(word.size()), noTime,
                         noTime, noConfidence});
    });
    return words;
}

Ms endOf(const Segment& segment) {
    return segment.endMs != noTime ? segment.endMs
                                   : segment.startMs + msPerLetter * static_cast<Ms>(segment.text.size());
}

// What the file gives times for, with both ends known: the end of a part without one is the next one's start.
std::vector<Word> timedParts(const Segment& segment) {
    std::vector<Word> parts;
    for (const Word& word : segment.words) {
        if (word.startMs == noTime)
            continue;
        if (!parts.empty() && parts.back().endMs == noTime)
            parts.back().endMs = std::max(parts.back().startMs, word.startMs);
        parts.push_back(word);
    }
    if (parts.empty() && segment.startMs != noTime)
        parts.push_back({0, static_cast<std::uint32_t>(segment.text.size()), segment.startMs, endOf(segment),
                         segment.confidence});
    if (!parts.empty() && parts.back().endMs == noTime) {
        Word& last = parts.back();
        last.endMs = std::max(last.startMs, segment.endMs != noTime
                                                ? segment.endMs
                                                : last.startMs + msPerLetter * static_cast<Ms>(last.length));
    }
    return parts;
}

// Gives the words that no part covers the time between their neighbours.
void fillGaps(std::vector<Word>& words, const Segment& segment) {
    const auto isTimed = [](const Word& word) { return word.startMs != noTime; };
    for (auto gap = std::find_if_not(words.begin(), words.end(), isTimed); gap != words.end();
         gap = std::find_if_not(gap, words.end(), isTimed)) {
        const auto end = std::find_if(gap, words.end(), isTimed);
        const bool known = gap != words.begin() || end != words.end();
        if (!known)
            return;
        Point first{gap->begin, 0};
        Point last{(end - 1)->begin + (end - 1)->length, 0};
        last.ms = end != words.end() ? end->startMs : std::max(segment.endMs, (gap - 1)->endMs);
        first.ms = gap != words.begin() ? (gap - 1)->endMs : std::max(segment.startMs, 0);
        last.ms = std::max(first.ms, last.ms);
        for (; gap != end; ++gap) {
            gap->startMs = between(first, last, gap->begin);
            gap->endMs = between(first, last, gap->begin + gap->length);
            gap->confidence = segment.confidence;
        }
    }
}

} // namespace

std::vector<Word> spreadWords(const Segment& segment) {
    std::vector<Word> words = wordsOf(segment.text);
    const std::vector<Word> parts = timedParts(segment);
    auto part = parts.begin();
    for (Word& word : words) {
        const std::uint32_t end = word.begin + word.length;
        while (part != parts.end() && part->begin + part->length <= word.begin)
            ++part;
        for (auto covering = part; covering != parts.end() && covering->begin < end; ++covering) {
            const Point from{covering->begin, covering->startMs};
            const Point to{covering->begin + covering->length, covering->endMs};
            if (word.startMs == noTime) {
                word.startMs = between(from, to, word.begin);
                word.confidence =
                    covering->confidence == noConfidence ? segment.confidence : covering->confidence;
            }
            word.endMs = std::max(word.startMs, between(from, to, end));
            if (covering->confidence != noConfidence)
                word.confidence = std::min(word.confidence, covering->confidence);
        }
    }
    fillGaps(words, segment);
    return words;
}

void shareCueTimes(std::vector<Segment>& segments) {
    for (std::size_t first = 0; first < segments.size();) {
        std::size_t end = first + 1;
        auto units = static_cast<std::uint32_t>(segments[first].text.size());
        for (; end < segments.size() && segments[end].continues; ++end)
            units += static_cast<std::uint32_t>(segments[end].text.size());
        if (end > first + 1 && segments[first].startMs != noTime) {
            Segment whole = segments[first];
            whole.text.resize(units);
            const Point from{0, whole.startMs};
            const Point to{units, endOf(whole)};
            std::uint32_t at = 0;
            for (std::size_t i = first; i < end; ++i) {
                segments[i].startMs = between(from, to, at);
                at += static_cast<std::uint32_t>(segments[i].text.size());
                segments[i].endMs = between(from, to, at);
            }
        }
        first = end;
    }
}

} // namespace drafts
