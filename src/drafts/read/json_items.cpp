#include "drafts/read/json_items.h"

#include "drafts/letters.h"
#include "drafts/time_text.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace drafts {

namespace {

Ms whole(double ms) {
    return toMs(ms / 1000);
}

bool isBare(TextView text) {
    return std::none_of(text.begin(), text.end(), isLetter);
}

// Finds the words in the text, one behind the other with nothing but blanks and punctuation between. Words
// that are not there end the search; how many were found is the result's length.
std::vector<Word> place(TextView text, const JsonPart* first, const JsonPart* last) {
    std::vector<Word> words;
    std::size_t at = 0;
    for (; first != last; ++first) {
        const TextView spelled = stripped(first->text);
        const auto hit = spelled.empty() ? at : text.find(spelled, at);
        if (hit == TextView::npos || !isBare(text.substr(at, hit - at)))
            break;
        words.push_back({static_cast<std::uint32_t>(hit), static_cast<std::uint32_t>(spelled.size()),
                         whole(first->startMs), whole(first->endMs), first->confidence});
        at = hit + spelled.size();
    }
    return words;
}

// Puts the text together from the words where the two differ.
Text joined(const std::vector<JsonPart>& parts) {
    const bool blanksSpelled = std::any_of(parts.begin(), parts.end(), [](const JsonPart& part) {
        return !part.text.empty() && part.text.front() == u' ';
    });
    Text text;
    for (const JsonPart& part : parts) {
        if (!blanksSpelled && needsBlankBetween(text, part.text))
            text += u' ';
        text += part.text;
    }
    return collapsed(text);
}

// Tokens are pieces of words. A word has the times of its first and last token and their mean confidence.
std::vector<Word> wordsOfTokens(TextView text, const std::vector<JsonPart>& tokens) {
    std::vector<Word> words;
    std::size_t at = 0;
    int count = 0;
    for (const JsonPart& token : tokens) {
        const TextView spelled = stripped(token.text);
        const auto hit = spelled.empty() ? TextView::npos : text.find(spelled, at);
        if (hit == TextView::npos || !isBare(text.substr(at, hit - at)))
            continue;
        const bool begins =
            words.empty() || std::any_of(text.begin() + static_cast<std::ptrdiff_t>(at),
                                         text.begin() + static_cast<std::ptrdiff_t>(hit), isBlank);
        at = hit + spelled.size();
        if (begins) {
            words.push_back({static_cast<std::uint32_t>(hit), static_cast<std::uint32_t>(spelled.size()),
                             whole(token.startMs), whole(token.endMs), token.confidence});
            count = 1;
            continue;
        }
        Word& word = words.back();
        word.length = static_cast<std::uint32_t>(at - word.begin);
        word.endMs = std::max(word.endMs, whole(token.endMs));
        if (word.confidence != noConfidence && token.confidence != noConfidence) {
            word.confidence = (word.confidence * static_cast<float>(count) + token.confidence) /
                              static_cast<float>(count + 1);
            ++count;
        }
    }
    return words;
}

// Words of a list of their own go to the segments that say them: by their letters as far as these agree, by
// their times from there on.
void share(std::vector<JsonItem>& words, std::vector<JsonItem>& segments) {
    std::vector<JsonPart> parts(std::make_move_iterator(words.begin()), std::make_move_iterator(words.end()));
    std::size_t next = 0;
    for (std::size_t i = 0; i < segments.size(); ++i) {
        const JsonPart* const first = parts.data() + next;
        std::size_t count = place(segments[i].text, first, parts.data() + parts.size()).size();
        if (count == 0) {
            const bool last = i + 1 == segments.size();
            while (next + count < parts.size() && (last || parts[next + count].startMs < segments[i].endMs))
                ++count;
        }
        const auto from = parts.begin() + static_cast<std::ptrdiff_t>(next);
        segments[i].parts.assign(from, from + static_cast<std::ptrdiff_t>(count));
        next += count;
    }
    if (!segments.empty())
        segments.back().parts.insert(segments.back().parts.end(),
                                     parts.begin() + static_cast<std::ptrdiff_t>(next), parts.end());
}

// Cuts a segment where the speakers of its words change.
void cutAtSpeakers(Segment segment, const std::vector<JsonPart>& parts, Draft& draft) {
    const auto speakerOf = [&](std::size_t i) {
        return parts[i].speaker == noSpeaker ? segment.speaker : parts[i].speaker;
    };
    const bool one = segment.words.size() != parts.size() || parts.empty() ||
                     std::all_of(parts.begin(), parts.end(), [&](const JsonPart& part) {
                         return part.speaker == noSpeaker || part.speaker == parts[0].speaker;
                     });
    if (one) {
        if (segment.words.size() == parts.size() && !parts.empty())
            segment.speaker = speakerOf(0);
        draft.segments.push_back(std::move(segment));
        return;
    }
    for (std::size_t i = 0; i < parts.size();) {
        std::size_t end = i + 1;
        while (end < parts.size() && speakerOf(end) == speakerOf(i))
            ++end;
        const std::size_t from = i == 0 ? 0 : segment.words[i].begin;
        const std::size_t to = end == parts.size() ? segment.text.size() : segment.words[end].begin;
        Segment piece;
        piece.text = stripped(TextView(segment.text).substr(from, to - from));
        piece.speaker = speakerOf(i);
        piece.startMs = i == 0 ? segment.startMs : segment.words[i].startMs;
        piece.endMs = end == parts.size() ? segment.endMs : segment.words[end - 1].endMs;
        piece.confidence = segment.confidence;
        piece.joined = i == 0 && segment.joined;
        piece.newParagraph = i == 0 && segment.newParagraph;
        for (std::size_t word = i; word < end; ++word) {
            piece.words.push_back(segment.words[word]);
            piece.words.back().begin -= static_cast<std::uint32_t>(from);
        }
        draft.segments.push_back(std::move(piece));
        i = end;
    }
}

void add(JsonItem& item, bool joinedToLast, Draft& draft) {
    Segment segment;
    segment.text = draft.exact ? item.text : collapsed(item.text);
    segment.speaker = item.speaker;
    segment.startMs = whole(item.startMs);
    segment.endMs = item.endMs < 0 ? noTime : whole(std::max(item.startMs, item.endMs));
    segment.confidence = item.confidence;
    segment.joined = joinedToLast;
    segment.newParagraph = item.newParagraph;
    std::erase_if(item.parts, [](const JsonPart& part) { return stripped(part.text).empty(); });
    if (item.partsAreTokens) {
        segment.words = wordsOfTokens(segment.text, item.parts);
    } else if (!item.parts.empty()) {
        const JsonPart* const first = item.parts.data();
        segment.words = place(segment.text, first, first + item.parts.size());
        if (segment.words.size() < item.parts.size()) {
            segment.text = joined(item.parts);
            segment.words = place(segment.text, first, first + item.parts.size());
        }
    }
    for (Word& word : segment.words)
        word.endMs = word.endMs == noTime ? noTime : std::max(word.startMs, word.endMs);
    if (segment.startMs == noTime && !segment.words.empty()) {
        segment.startMs = segment.words.front().startMs;
        segment.endMs = segment.words.back().endMs;
    }
    if (!segment.text.empty())
        cutAtSpeakers(std::move(segment), item.parts, draft);
}

// A list of words becomes one item, whose text is that of the whole file where both agree.
std::vector<JsonItem> asOneItem(std::vector<JsonItem>& words, const std::string& text) {
    std::vector<JsonItem> items(1);
    items[0].text = base::fromUtf8(text);
    items[0].parts.assign(std::make_move_iterator(words.begin()), std::make_move_iterator(words.end()));
    return items;
}

// The speakers of a list of their own, which has the same pieces as the chunks.
void takeSpeakers(const std::vector<JsonItem>& from, std::vector<JsonItem>& to) {
    std::size_t at = 0;
    for (JsonItem& item : to) {
        const double middle = (item.startMs + std::max(item.startMs, item.endMs)) / 2;
        while (at + 1 < from.size() && from[at].endMs <= middle)
            ++at;
        if (item.speaker == noSpeaker && at < from.size())
            item.speaker = from[at].speaker;
    }
}

} // namespace

void addItems(JsonLists& lists, Draft& draft) {
    draft.exact = draft.hasParagraphs = lists.exact;
    std::vector<JsonItem>& words =
        lists[ListKind::Words].empty() ? lists[ListKind::WordSegments] : lists[ListKind::Words];
    std::vector<JsonItem> items;
    for (const ListKind kind :
         {ListKind::Segments, ListKind::Transcription, ListKind::Chunks, ListKind::Speakers}) {
        if (items.empty())
            items = std::move(lists[kind]);
    }
    takeSpeakers(lists[ListKind::Speakers], items);
    const bool haveParts = std::any_of(items.begin(), items.end(), [](const JsonItem& item) {
        return !item.parts.empty() && !item.partsAreTokens;
    });
    draft.form = haveParts || !words.empty() ? Form::Words : Form::Segments;
    if (items.empty() && !words.empty())
        items = asOneItem(words, lists.text);
    else if (!haveParts && !words.empty())
        share(words, items);
    const bool blanksSpelled = std::any_of(items.begin(), items.end(), [](const JsonItem& item) {
        return !item.text.empty() && item.text.front() == u' ';
    });
    bool blankBehind = true;
    for (JsonItem& item : items) {
        const TextView text = item.text;
        const bool goesOn = blanksSpelled && !blankBehind && !text.empty() && text.front() != u' ';
        blankBehind = text.empty() ? blankBehind : text.back() == u' ';
        add(item, goesOn && item.parts.empty(), draft);
    }
}

} // namespace drafts
