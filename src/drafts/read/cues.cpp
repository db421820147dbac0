#include "drafts/read/cues.h"

#include "drafts/letters.h"
#include "drafts/time_text.h"

#include <algorithm>
#include <utility>

namespace drafts {

namespace {

constexpr TextView arrow = u"-->";
constexpr Ms clearsScreen = 2000; // a pause after which a line that comes again was said again

// The lines of a cue that hold text, without their tags.
std::vector<CueText> shownLines(const Cue& cue, Tags tags) {
    std::vector<CueText> shown;
    for (const TextView line : cue.lines) {
        if (CueText text = cueText(line, tags); !text.text.empty())
            shown.push_back(std::move(text));
    }
    return shown;
}

// How many lines at the head of `now` are those at the end of `before`.
std::size_t rolledLines(const std::vector<CueText>& before, const std::vector<CueText>& now) {
    const auto same = [](const CueText& a, const CueText& b) { return a.text == b.text; };
    for (std::size_t count = std::min(before.size(), now.size()); count > 0; --count) {
        if (std::equal(now.begin(), now.begin() + static_cast<std::ptrdiff_t>(count),
                       before.end() - static_cast<std::ptrdiff_t>(count), same))
            return count;
    }
    return 0;
}

// True when at least half of the cues begin with what the one before ended with.
bool roll(const std::vector<Cue>& cues, Tags tags) {
    const std::size_t least = tags == Tags::Cues ? 2 : 4;
    std::size_t rolled = 0;
    std::vector<CueText> before;
    for (const Cue& cue : cues) {
        std::vector<CueText> now = shownLines(cue, tags);
        rolled += rolledLines(before, now) > 0 ? 1 : 0;
        before = std::move(now);
    }
    return rolled >= least && rolled * 2 >= cues.size();
}

// Removes blanks from both ends of a range.
void trim(TextView text, std::size_t& begin, std::size_t& end) {
    while (begin < end && isBlank(text[begin]))
        ++begin;
    while (begin < end && isBlank(text[end - 1]))
        --end;
}

// The words of a segment whose text has times inside: from each stamp to the next one.
std::vector<Word> stampedWords(const CueText& cue, std::size_t begin, std::size_t end, Ms startMs, Ms endMs) {
    std::vector<Word> words;
    const auto add = [&](std::size_t from, std::size_t to, Ms start, Ms stop) {
        trim(cue.text, from, to);
        if (to > from)
            words.push_back({static_cast<std::uint32_t>(from - begin), static_cast<std::uint32_t>(to - from),
                             start, std::max(start, stop)});
    };
    std::size_t from = begin;
    Ms start = startMs;
    for (const CueText::Stamp& stamp : cue.stamps) {
        const std::size_t at = std::clamp(stamp.at, begin, end);
        add(from, at, start, stamp.ms);
        from = at;
        start = std::max(startMs, stamp.ms);
    }
    if (from == begin)
        return {};
    add(from, end, start, endMs);
    return words;
}

// Adds a segment for each voice of the cue.
void addVoices(const CueText& cue, Ms startMs, Ms endMs, Draft& draft) {
    std::vector<CueText::Voice> voices = cue.voices;
    if (voices.empty() || voices.front().at > 0)
        voices.insert(voices.begin(), CueText::Voice{});
    bool first = true;
    for (std::size_t i = 0; i < voices.size(); ++i) {
        std::size_t begin = std::min(voices[i].at, cue.text.size());
        std::size_t end =
            i + 1 < voices.size() ? std::min(voices[i + 1].at, cue.text.size()) : cue.text.size();
        trim(cue.text, begin, end);
        if (end <= begin)
            continue;
        Segment segment;
        segment.text = cue.text.substr(begin, end - begin);
        segment.speaker = draft.speaker(voices[i].name);
        segment.continues = !std::exchange(first, false);
        if (!segment.continues) {
            segment.startMs = startMs;
            segment.endMs = endMs;
        }
        segment.styles = stylesOf(cue.styles, begin, end, 0);
        segment.words = stampedWords(cue, begin, end, startMs, endMs);
        draft.segments.push_back(std::move(segment));
    }
}

void addRolling(const std::vector<Cue>& cues, Tags tags, Draft& draft) {
    std::vector<CueText> before;
    Ms beforeEnd = 0;
    for (const Cue& cue : cues) {
        std::vector<CueText> now = shownLines(cue, tags);
        const std::size_t rolled = cue.startMs >= beforeEnd + clearsScreen ? 0 : rolledLines(before, now);
        for (std::size_t i = rolled; i < now.size(); ++i) {
            addVoices(now[i], cue.startMs, cue.endMs, draft);
            if (Segment& added = draft.segments.back(); added.words.empty())
                added.words = {{0, static_cast<std::uint32_t>(added.text.size()), cue.startMs, cue.endMs}};
        }
        before = std::move(now);
        beforeEnd = cue.endMs;
    }
}

} // namespace

std::optional<Cue> timeLine(TextView line, std::size_t number, char16_t fraction, Draft& draft) {
    const auto middle = line.find(arrow);
    if (middle == TextView::npos)
        return std::nullopt;
    const TextView left = stripped(line.substr(0, middle));
    const TextView right = stripped(line.substr(middle + arrow.size()));
    const auto isDigit = [](TextView text) { return !text.empty() && text[0] >= u'0' && text[0] <= u'9'; };
    if (!isDigit(left) && !isDigit(right))
        return std::nullopt;
    const auto start = timeAtHead(left);
    const auto end = timeAtHead(right);
    const bool whole = start && end && start->length == left.size() &&
                       (end->length == right.size() || isBlank(right[end->length]));
    if (!whole)
        throw Damage(Fault::UnreadableTime, number);
    const auto isUsual = [&](const TimeText& time) { return time.fraction == fraction && time.colons > 0; };
    if (!isUsual(*start) || !isUsual(*end))
        draft.note(Fault::OtherTimeFormat, number);
    if (end->ms < start->ms)
        draft.note(Fault::EndBeforeStart, number);
    return Cue{start->ms, std::max(start->ms, end->ms), number, {}};
}

void addCues(const std::vector<Cue>& cues, Tags tags, Draft& draft) {
    if (roll(cues, tags)) {
        draft.form = Form::RollingCaptions;
        addRolling(cues, tags, draft);
        return;
    }
    for (const Cue& cue : cues) {
        Text marked;
        for (const TextView line : cue.lines)
            (marked += line) += u'\n';
        const CueText text = cueText(marked, tags);
        if (text.text.empty())
            draft.note(Fault::NoText, cue.line);
        else
            addVoices(text, cue.startMs, cue.endMs, draft);
    }
}

} // namespace drafts
