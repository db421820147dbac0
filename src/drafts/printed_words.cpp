#include "drafts/printed_words.h"

#include "drafts/letters.h"
#include "drafts/read/stamps.h"
#include "drafts/time_text.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>
#include <utility>

namespace drafts {

namespace {

constexpr double longest = 500 * 3600; // seconds of a recording

std::optional<double> number(TextView text) {
    const std::string ascii = base::toUtf8(text);
    double value = 0;
    const auto [end, fault] = std::from_chars(ascii.data(), ascii.data() + ascii.size(), value);
    if (fault != std::errc() || end != ascii.data() + ascii.size() || !(value >= 0 && value < longest))
        return std::nullopt;
    return value;
}

// Takes the part up to the next blank from the head of the text.
TextView takePart(TextView& text) {
    const TextView part = text.substr(0, text.find(u' '));
    text.remove_prefix(std::min(part.size() + 1, text.size()));
    return part;
}

// Silence, noise and the ends of an utterance are no words.
bool isSpoken(TextView word) {
    return !word.starts_with(u'<') && !word.starts_with(u'[') && !word.starts_with(u"++");
}

// "with(2)" is the word in its second pronunciation.
TextView withoutVariant(TextView word) {
    const auto open = word.rfind(u'(');
    return open != TextView::npos && open > 0 && word.ends_with(u')') ? word.substr(0, open) : word;
}

} // namespace

bool PrintedWords::line(TextView line) {
    return takeWord(line) || takeSegment(line);
}

void PrintedWords::reset() {
    utterance_ = {};
    heardMs_ = 0;
}

bool PrintedWords::takeWord(TextView line) {
    const TextView word = takePart(line);
    const auto start = number(takePart(line));
    const auto end = number(takePart(line));
    const auto confidence = number(takePart(line));
    if (word.empty() || !start || !end || !confidence || *end < *start || !line.empty())
        return false;
    heardMs_ = std::max(heardMs_, toMs(*end));
    if (word == u"</s>" || word == u"<s>") {
        this->end();
    } else if (isSpoken(word)) {
        const TextView letters = withoutVariant(word);
        if (!utterance_.text.empty())
            utterance_.text += u' ';
        utterance_.words.push_back({static_cast<std::uint32_t>(utterance_.text.size()),
                                    static_cast<std::uint32_t>(letters.size()), toMs(*start), toMs(*end),
                                    static_cast<float>(std::min(*confidence, 1.0))});
        utterance_.text += letters;
    }
    return true;
}

bool PrintedWords::takeSegment(TextView line) {
    line = stripped(line);
    const auto stamp = stampAtHead(line, false);
    if (!stamp || stamp->endMs == noTime || stamp->endMs < stamp->startMs)
        return false;
    end();
    heardMs_ = std::max(heardMs_, stamp->endMs);
    Segment segment;
    segment.text = collapsed(line.substr(stamp->length));
    segment.startMs = stamp->startMs;
    segment.endMs = stamp->endMs;
    if (!segment.text.empty())
        Arrived(segment);
    return true;
}

void PrintedWords::end() {
    if (utterance_.words.empty())
        return;
    utterance_.startMs = utterance_.words.front().startMs;
    utterance_.endMs = utterance_.words.back().endMs;
    Arrived(std::exchange(utterance_, {}));
}

} // namespace drafts
