#include "drafts/read/stamps.h"

#include "drafts/letters.h"
#include "drafts/time_text.h"

#include <algorithm>
#include <utility>

namespace drafts {

namespace {

constexpr std::pair<char16_t, char16_t> brackets[] = {
    {u'[', u']'}, {u'(', u')'}, {u'{', u'}'}, {u'<', u'>'}, {u'#', u'#'}};

void skipBlanks(TextView text, std::size_t& at) {
    while (at < text.size() && isBlank(text[at]))
        ++at;
}

// A time of at least minutes and seconds at `at`, which moves behind it.
std::optional<Ms> clockAt(TextView text, std::size_t& at) {
    const auto time = timeAtHead(text.substr(at));
    if (!time || time->colons == 0)
        return std::nullopt;
    at += time->length;
    Ms ms = time->ms;
    // The tenths of "#00:01:02-3#".
    if (at + 1 < text.size() && text[at] == u'-' && text[at + 1] >= u'0' && text[at + 1] <= u'9') {
        ms += (text[at + 1] - u'0') * 100;
        at += 2;
    }
    return ms;
}

} // namespace

std::optional<StampText> stampAtHead(TextView text, bool bare) {
    if (text.empty())
        return std::nullopt;
    const auto* const pair = std::find_if(std::begin(brackets), std::end(brackets),
                                          [&](const auto& row) { return row.first == text.front(); });
    const bool open = pair != std::end(brackets);
    if (!open && !bare)
        return std::nullopt;
    std::size_t at = open ? 1 : 0;
    skipBlanks(text, at);
    StampText stamp;
    const auto start = clockAt(text, at);
    if (!start)
        return std::nullopt;
    stamp.startMs = *start;
    if (open) {
        skipBlanks(text, at);
        const TextView rest = text.substr(at);
        const std::size_t joint = rest.substr(0, 3) == u"-->"                                  ? 3
                                  : !rest.empty() && (rest[0] == u'-' || rest[0] == u'\u2013') ? 1
                                                                                               : 0;
        if (joint > 0) {
            at += joint;
            skipBlanks(text, at);
            const auto end = clockAt(text, at);
            if (!end)
                return std::nullopt;
            stamp.endMs = std::max(*start, *end);
            skipBlanks(text, at);
        }
        if (at >= text.size() || text[at] != pair->second)
            return std::nullopt;
        ++at;
    } else if (at < text.size() && !isBlank(text[at])) {
        return std::nullopt;
    }
    stamp.length = at;
    return stamp;
}

void StampedPieces::stamp(const StampText& stamp) {
    flush();
    endUnit(stamp.startMs);
    startMs_ = stamp.startMs;
    endMs_ = stamp.endMs;
    unitBegun_ = false;
}

void StampedPieces::endStamp(Ms ms) {
    flush();
    endUnit(ms);
    startMs_ = ms;
    endMs_ = noTime;
    unitBegun_ = false;
}

void StampedPieces::speaker(TextView name) {
    speaker_ = draft_.speaker(name);
}

void StampedPieces::endLine() {
    flush();
    lineBegins_ = true;
}

bool StampedPieces::lineIsEmpty() const {
    return std::all_of(line_.begin(), line_.end(), isBlank);
}

void StampedPieces::flush() {
    Segment segment;
    segment.text = collapsed(std::exchange(line_, {}));
    if (segment.text.empty())
        return;
    segment.speaker = speaker_;
    segment.newParagraph = std::exchange(lineBegins_, false);
    segment.continues = unitBegun_;
    if (!unitBegun_) {
        segment.startMs = startMs_;
        segment.endMs = endMs_;
        unit_ = draft_.segments.size();
        unitBegun_ = true;
    }
    draft_.hasParagraphs = true;
    draft_.segments.push_back(std::move(segment));
}

void StampedPieces::endUnit(Ms ms) {
    if (unitBegun_ && draft_.segments[unit_].startMs != noTime && draft_.segments[unit_].endMs == noTime)
        draft_.segments[unit_].endMs = std::max(draft_.segments[unit_].startMs, ms);
}

} // namespace drafts
