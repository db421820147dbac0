#include "drafts/write/captions.h"

#include "drafts/letters.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

namespace drafts {

namespace {

constexpr Ms longPause = 1500; // ends a caption
constexpr Ms mostLate = 1000;

// A word with what follows it up to the next one, and when it is heard.
struct Piece {
    Text text;
    bool blankBehind = false;
    Ms startMs = 0;
    Ms endMs = 0;
};

// How well a caption or a line ends behind a piece.
int endQuality(const Piece& piece, const Piece* next) {
    static constexpr TextView sentence = u".?!\u2026\u3002\uFF1F\uFF01";
    static constexpr TextView clause = u",;:\u2013\u2014\u3001\uFF0C";
    TextView text = piece.text;
    while (text.size() > 1 && TextView(u"\"')]\u201D\u2019\u00BB").find(text.back()) != TextView::npos)
        text.remove_suffix(1);
    if (sentence.find(text.back()) != TextView::npos)
        return 3;
    if (clause.find(text.back()) != TextView::npos)
        return 2;
    static constexpr std::array<TextView, 20> joints = {
        u"and",  u"or", u"but",  u"because", u"that", u"which", u"who",    u"und", u"aber", u"weil",
        u"dass", u"et", u"mais", u"que",     u"y",    u"pero",  u"porque", u"e",   u"ma",   u"che"};
    const bool beforeJoint =
        next && std::find(joints.begin(), joints.end(), base::lowered(next->text)) != joints.end();
    return beforeJoint ? 1 : 0;
}

std::size_t letters(TextView text) {
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char16_t unit) { return unit < 0xDC00 || unit > 0xDFFF; }));
}

// The pieces of a turn. Words longer than a line are cut; those without times get them from their neighbours.
std::vector<Piece> pieces(const Turn& turn, const CaptionRules& rules, bool named) {
    std::vector<Piece> result;
    std::uint32_t at = 0;
    const auto add = [&](TextView text, Ms start, Ms end) {
        const bool blank = !text.empty() && isBlank(text.back());
        const Text clean = collapsed(text);
        for (std::size_t from = 0; from < clean.size();) {
            std::size_t length = std::min(rules.lineLength, clean.size() - from);
            if (from + length < clean.size() && length > 1 && clean[from + length] >= 0xDC00 &&
                clean[from + length] <= 0xDFFF)
                --length;
            const bool last = from + length == clean.size();
            result.push_back({clean.substr(from, length), last && blank, start, end});
            from += length;
        }
    };
    const TextView text = turn.text;
    if (named && !turn.words.empty())
        add(turn.speaker + u": ", turn.words.front().moment.start, turn.words.front().moment.start);
    for (std::size_t i = 0; i < turn.words.size(); ++i) {
        const MomentOfText& word = turn.words[i];
        const Ms start = word.moment.start;
        const std::uint32_t next =
            i + 1 < turn.words.size() ? turn.words[i + 1].begin : static_cast<std::uint32_t>(text.size());
        // What has no time is heard with the word before it, at the beginning with the first.
        TextView whole = text.substr(at, next - at);
        at = next;
        Ms end = word.moment.end;
        if (end == moments::Moment::noEnd)
            end = start + static_cast<Ms>(word.length) * 70;
        while (!whole.empty()) {
            const auto blank = std::find_if(whole.begin(), whole.end(), isBlank);
            const auto letter = std::find_if_not(blank, whole.end(), isBlank);
            const auto length = static_cast<std::size_t>(letter - whole.begin());
            add(whole.substr(0, length), start, std::max(start, end));
            whole.remove_prefix(length);
        }
    }
    return result;
}

Text joined(const std::vector<Piece>& all, std::size_t first, std::size_t end) {
    Text text;
    for (std::size_t i = first; i < end; ++i) {
        text += all[i].text;
        if (all[i].blankBehind && i + 1 < end)
            text += u' ';
    }
    return text;
}

// Where the second line begins; `end` when one line is enough and `first` when two are not.
std::size_t secondLine(const std::vector<Piece>& all, std::size_t first, std::size_t end,
                       std::size_t lineLength) {
    const std::size_t total = letters(joined(all, first, end));
    if (total <= lineLength)
        return end;
    std::size_t best = first;
    int bestMark = -1'000'000;
    std::size_t upper = 0;
    for (std::size_t i = first + 1; i < end; ++i) {
        upper += letters(all[i - 1].text);
        const std::size_t lower = total - upper - (all[i - 1].blankBehind ? 1 : 0);
        if (upper <= lineLength && lower <= lineLength) {
            const int uneven = std::abs(static_cast<int>(upper) - static_cast<int>(lower));
            const int mark = endQuality(all[i - 1], &all[i]) * 12 - uneven;
            if (mark > bestMark) {
                bestMark = mark;
                best = i;
            }
        }
        upper += all[i - 1].blankBehind ? 1 : 0;
    }
    return best;
}

// Where the caption that begins at `first` ends.
std::size_t captionEnd(const std::vector<Piece>& all, std::size_t first, const CaptionRules& rules) {
    std::size_t most = first + 1;
    std::size_t used = letters(all[first].text);
    while (most < all.size()) {
        const Piece& next = all[most];
        used += letters(next.text) + (all[most - 1].blankBehind ? 1 : 0);
        if (next.startMs - all[most - 1].endMs >= longPause ||
            next.endMs - all[first].startMs > rules.mostMs || used > 2 * rules.lineLength ||
            secondLine(all, first, most + 1, rules.lineLength) == first)
            break;
        ++most;
    }
    if (most == all.size())
        return most;
    if (all[most].startMs - all[most - 1].endMs >= longPause)
        return most;
    // The best end in the second half of what fits; a sentence may end earlier.
    std::size_t best = most;
    int bestQuality = 0;
    for (std::size_t end = most; end > first + 1; --end) {
        const std::size_t taken = letters(joined(all, first, end));
        const int quality = endQuality(all[end - 1], &all[end]);
        if (quality > bestQuality && taken * (quality == 3 ? 4 : 2) >= used) {
            bestQuality = quality;
            best = end;
        }
    }
    return best;
}

// Gives each caption the time that its letters ask for, as far as its neighbours leave it.
void schedule(Captions& result, const CaptionRules& rules) {
    Ms free = 0; // the end of the caption before
    for (std::size_t i = 0; i < result.captions.size(); ++i) {
        Caption& caption = result.captions[i];
        std::size_t shown = 0;
        for (const Text& line : caption.lines)
            shown += letters(line);
        const Ms asked =
            static_cast<Ms>((shown * 1000 + static_cast<std::size_t>(rules.lettersPerSecond) - 1) /
                            static_cast<std::size_t>(rules.lettersPerSecond));
        const Ms needed = std::clamp(asked, rules.leastMs, rules.mostMs);
        const Ms heard = caption.startMs;
        caption.startMs = std::max(heard, free);
        caption.endMs = std::clamp(std::max(caption.endMs, caption.startMs + needed), caption.startMs + 1,
                                   caption.startMs + rules.mostMs);
        if (i + 1 < result.captions.size()) {
            const Ms next = result.captions[i + 1].startMs;
            const Ms latest = caption.startMs + needed > next ? next + mostLate : next;
            caption.endMs = std::max(caption.startMs + 1, std::min(caption.endMs, latest));
            if (caption.endMs > next)
                caption.endMs = std::max(std::min(caption.endMs, caption.startMs + needed), next);
        }
        if (caption.endMs - caption.startMs < needed)
            ++result.tooFast;
        free = caption.endMs;
    }
}

} // namespace

Captions captions(const std::vector<Turn>& turns, const CaptionRules& rules) {
    Captions result;
    Text speaker;
    for (const Turn& turn : turns) {
        const bool begins = !turn.speaker.empty() && turn.speaker != speaker;
        const std::vector<Piece> all = pieces(turn, rules, rules.namesInText && begins);
        if (all.empty())
            ++result.withoutTime;
        else
            speaker = turn.speaker;
        for (std::size_t first = 0; first < all.size();) {
            const std::size_t end = captionEnd(all, first, rules);
            const std::size_t second = secondLine(all, first, end, rules.lineLength);
            Caption caption{all[first].startMs, all[end - 1].endMs, turn.speaker, begins && first == 0, {}};
            caption.lines.push_back(joined(all, first, second > first ? second : end));
            if (second > first && second < end)
                caption.lines.push_back(joined(all, second, end));
            result.captions.push_back(std::move(caption));
            first = end;
        }
    }
    std::stable_sort(result.captions.begin(), result.captions.end(),
                     [](const Caption& a, const Caption& b) { return a.startMs < b.startMs; });
    schedule(result, rules);
    return result;
}

} // namespace drafts
