#include "moments/word_moments.h"
#include "testing.h"

using moments::Moment;
using moments::Timed;
using moments::WordMoments;

namespace {

constexpr int unknown = -2; // what the rules for new letters say is tested elsewhere
constexpr int none = -1;

// A text that keeps a moment with each letter: the start of its word, in ms.
struct Plain {
    base::Text text;
    std::vector<int> starts;
};

Plain transcript(int words, int firstStart) {
    Plain plain;
    for (int word = 0; word < words; ++word) {
        plain.text += base::fromUtf8(std::to_string(10'000 + word));
        plain.starts.resize(plain.text.size(), firstStart + 300 * word);
        plain.text += word % 40 == 39 ? u"\r\n" : u" "; // the blanks have no moment
        plain.starts.resize(plain.text.size(), none);
    }
    return plain;
}

Timed timed(const Plain& plain) {
    Timed timed;
    for (const int start : plain.starts)
        timed.runs.push_back({1, start == none ? std::nullopt : std::optional(Moment{.start = start})});
    return timed;
}

// The moments beside the plain text, with records of both.
class Both {
public:
    Both() { exchange(transcript(5000, 0)); }

    std::size_t place() { return random_() % (now.text.size() + 1); }
    std::size_t upTo(std::size_t limit) { return random_() % (limit + 1); }
    base::Text letters(std::size_t most) {
        base::Text text;
        for (std::size_t i = upTo(most); i > 0; --i)
            text += u"xyz \r\n"[random_() % 4];
        return text;
    }

    // As the editor tells it: now and then a stretch that is larger than the change.
    void edit(std::size_t at, std::size_t removed, const base::Text& inserted) {
        const std::size_t margin = std::min(at, upTo(3));
        const base::Text before = now.text.substr(at - margin, margin);
        tell(at - margin, before + now.text.substr(at, removed), before + inserted);
        replace(at, removed, {inserted, std::vector<int>(inserted.size(), unknown)});
    }
    void paste(std::size_t at, std::size_t removed, const Timed& moments, const Plain& pasted) {
        tested.apply(static_cast<int>(at), static_cast<int>(removed), moments);
        replace(at, removed, pasted);
    }
    Plain part(std::size_t at, std::size_t count) const {
        const auto from = now.starts.begin() + static_cast<std::ptrdiff_t>(at);
        return {now.text.substr(at, count), {from, from + static_cast<std::ptrdiff_t>(count)}};
    }
    void exchange(const Plain& by) {
        paste(0, now.text.size(), timed(by), by);
        record();
    }
    void record() {
        tested.record();
        undone_.clear();
        done_.push_back(now);
        if (done_.size() > 40)
            done_.pop_front();
    }
    void undo() {
        if (done_.size() < 2)
            return;
        tested.undoing();
        undone_.push_back(done_.back());
        done_.pop_back();
        goTo(done_.back(), &WordMoments::putBackFromBefore);
        tested.undone();
    }
    void redo() {
        if (undone_.empty())
            return;
        goTo(undone_.back(), &WordMoments::putBackFromNext);
        tested.redone();
        done_.push_back(undone_.back());
        undone_.pop_back();
    }
    int differences(std::size_t from, std::size_t count) const {
        int differences = 0;
        for (std::size_t at = from; at < std::min(from + count, now.text.size()); ++at) {
            const auto moment = tested.at(static_cast<int>(at));
            differences += now.starts[at] != unknown && now.starts[at] != (moment ? moment->start : none);
        }
        return differences;
    }

    Plain now;
    WordMoments tested;

private:
    void tell(std::size_t at, const base::Text& removed, const base::Text& inserted) {
        const auto unit = [&](std::size_t place) {
            return place < now.text.size() ? now.text[place] : u'\0';
        };
        tested.apply({static_cast<int>(at), removed, inserted, at > 0 ? unit(at - 1) : u'\0',
                      unit(at + removed.size())});
    }
    void replace(std::size_t at, std::size_t removed, const Plain& by) {
        now.text.replace(at, removed, by.text);
        const auto from = now.starts.begin() + static_cast<std::ptrdiff_t>(at);
        const auto behind = now.starts.erase(from, from + static_cast<std::ptrdiff_t>(removed));
        now.starts.insert(behind, by.starts.begin(), by.starts.end());
    }
    // Puts back what stood there, and takes out what stands there now.
    void goTo(const Plain& other, void (WordMoments::*putBack)(std::int32_t)) {
        const auto least = std::min(now.text.size(), other.text.size());
        const auto alike = [&](std::size_t here, std::size_t there) {
            return now.text[here] == other.text[there] && now.starts[here] == other.starts[there];
        };
        std::size_t same = 0;
        while (same < least && alike(same, same))
            ++same;
        std::size_t tail = 0;
        while (tail < least - same && alike(now.text.size() - 1 - tail, other.text.size() - 1 - tail))
            ++tail;
        const base::Text gone = now.text.substr(same, now.text.size() - same - tail);
        const base::Text back = other.text.substr(same, other.text.size() - same - tail);
        (tested.*putBack)(static_cast<std::int32_t>(same));
        tell(same, {}, back);
        now.text.insert(same, back);
        tell(same + back.size(), gone, {});
        now = other;
    }

    std::mt19937 random_{11};
    std::deque<Plain> done_;
    std::vector<Plain> undone_;
};

} // namespace

TEST(WordMoments, TenThousandEdits_OfEveryKind_LeaveEachLetterTheMomentThatItHad) {
    Both both;
    for (int step = 0; step < 10'000; ++step) {
        const std::size_t at = both.place();
        const std::size_t rest = both.now.text.size() - at;
        switch (both.upTo(13)) {
        case 0:
        case 1:
        case 2:
        case 3: // typed, also over a selection
            both.edit(at, both.upTo(8) == 0 ? std::min(both.upTo(20), rest) : 0, both.letters(3));
            break;
        case 4:
        case 5: // deleted
            both.edit(at, std::min(both.upTo(12), rest), {});
            break;
        case 6:
        case 7: { // cut and pasted, or dragged
            const std::size_t count = std::min(both.upTo(200), rest);
            const Plain cut = both.part(at, count);
            const Timed moments = both.tested.timed(static_cast<int>(at), static_cast<int>(count));
            both.paste(at, count, {}, {});
            both.record();
            both.paste(both.place(), 0, moments, cut);
            break;
        }
        case 8: // replaced in many places
            for (std::size_t hit = both.now.text.find(u"37", at), hits = 0;
                 hit != base::Text::npos && hits < 5; hit = both.now.text.find(u"37", hit + 5), ++hits) {
                both.edit(hit, 2, u"wxyz");
                both.record();
            }
            break;
        case 9:
        case 10:
            both.undo();
            continue;
        case 11:
            both.redo();
            continue;
        default: // another document now and then, or none
            if (step % 100 == 0)
                both.exchange(step % 300 == 0 ? Plain() : transcript(5000, step));
        }
        // The control may tell of two changes at once.
        if (both.upTo(3) == 0)
            both.edit(both.place(), 0, both.letters(2));
        both.record();
        const std::size_t place = at > 20 ? at - 20 : 0;
        ASSERT_EQ(both.tested.length(), static_cast<int>(both.now.text.size())) << step;
        ASSERT_EQ(both.differences(place, 60), 0) << step;
        ASSERT_EQ(both.differences(both.place(), 60), 0) << step;
        ASSERT_EQ(step % 200 == 0 ? both.differences(0, both.now.text.size()) : 0, 0) << step;
    }
}

TEST(WordMoments, NewLetters_HaveTheMomentOfTheirWord_OfTheOneTheyReplace_OrTheOneHeard) {
    struct Row {
        int position;
        base::Text removed, inserted;
        std::vector<int> words; // of the words of the text behind it
    };
    const base::Text text = u"one two four"; // at 100, 200 and 400 ms
    const Row rows[] = {
        {1, u"", u"x", {100, 200, 400}},        // corrected
        {1, u"", u" ", {100, 100, 200, 400}},   // split
        {3, u" ", u"", {100, 400}},             // joined
        {4, u"two", u"three", {100, 200, 400}}, // in the place of another
        {4, u"two", u"three and", {100, 200, -1, 400}},
        {4, u"two four", u"two and four", {100, 200, 300, 400}},
        {8, u"", u"new ", {100, 200, 300, 400}},  // heard between its neighbours
        {4, u"", u"new ", {100, -1, 200, 400}},   // not so: interpolated
        {12, u"", u" new", {100, 200, 400, 300}}, // at the end whatever is heard
        {8, u"", u"more words ", {100, 200, -1, -1, 400}},
    };
    for (const Row& row : rows) {
        WordMoments moments;
        moments.Heard = [] { return 300; };
        moments.apply(0, 0,
                      {{{3, Moment{.start = 100}},
                        {1, {}},
                        {3, Moment{.start = 200}},
                        {1, {}},
                        {4, Moment{.start = 400}}}});
        const auto at = static_cast<std::size_t>(row.position);
        base::Text after = text;
        after.replace(at, row.removed.size(), row.inserted);
        const auto behind = at + row.removed.size();
        moments.apply({row.position, row.removed, row.inserted, at > 0 ? text[at - 1] : u'\0',
                       behind < text.size() ? text[behind] : u'\0'});
        std::vector<int> words;
        for (std::size_t begin = 0; begin < after.size();) {
            const std::size_t end = std::min(after.find(u' ', begin), after.size());
            const auto moment = moments.first(static_cast<int>(begin), static_cast<int>(end));
            words.push_back(moment ? moment->start : -1);
            begin = end + 1;
        }
        EXPECT_EQ(words, row.words) << base::toUtf8(after);
    }
}

TEST(WordMoments, BetweenMoments_PlacesAndTimesAreInterpolated) {
    WordMoments moments;
    EXPECT_EQ(moments.estimate(0, 1), std::nullopt);
    EXPECT_EQ(moments.heardAt(0), std::nullopt);
    // "aa bb cc dd ee": the first begins at 1 s, the last at 3 s, and is told to end at 4 s
    moments.apply(0, 0,
                  {{{2, Moment{.start = 1000}}, {10, {}}, {2, Moment{.start = 3000, .end = 4000}}, {3, {}}}});
    const std::pair<int, int> estimates[] = {{0, 1000}, {3, 1500},  {6, 2000},
                                             {9, 2500}, {12, 3000}, {15, 4000}};
    for (const auto& [begin, ms] : estimates)
        EXPECT_EQ(moments.estimate(begin, begin + 2)->start, ms) << begin;
    const std::pair<int, std::optional<int>> places[] = {
        {999, {}}, {1000, 0}, {1500, 3}, {2999, 11}, {3500, 12}};
    for (const auto& [ms, place] : places)
        EXPECT_EQ(moments.heardAt(ms), place) << ms;
}
