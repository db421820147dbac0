#include "moments/word_moments.h"
#include "testing.h"

using moments::Moment;
using moments::Timed;
using moments::WordMoments;

namespace {

constexpr int unknown = -2; // what the rules for new letters say is tested elsewhere
constexpr int none = -1;

// A text whose letters keep their moment beside them: the start of their word, in ms.
using Plain = std::vector<std::pair<char16_t, int>>;

Plain transcript(int words, int firstStart) {
    Plain plain;
    for (int word = 0; word < words; ++word) {
        for (const char digit : std::to_string(10'000 + word))
            plain.emplace_back(digit, firstStart + 300 * word);
        plain.emplace_back(word % 40 == 39 ? u'\n' : u' ', none);
    }
    return plain;
}

Timed timed(const Plain& plain) {
    Timed timed;
    for (const auto& [letter, start] : plain)
        timed.runs.push_back({1, start == none ? std::nullopt : std::optional(Moment{.start = start})});
    return timed;
}

base::Text text(const Plain& plain) {
    base::Text text;
    for (const auto& [letter, start] : plain)
        text += letter;
    return text;
}

// The moments beside the plain text, with records of both.
class Both {
public:
    Both() { exchange(transcript(5000, 0)); }

    int size() const { return static_cast<int>(now.size()); }
    int upTo(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit + 1)); }
    base::Text letters(int most) {
        base::Text text;
        for (int i = upTo(most); i > 0; --i)
            text += u"xyz "[upTo(3)];
        return text;
    }
    Plain part(int at, int count) const { return {now.begin() + at, now.begin() + at + count}; }

    // As the editor tells it: now and then a stretch that is larger than the change.
    void edit(int at, int removed, const base::Text& inserted) {
        const int margin = std::min(at, upTo(3));
        const base::Text before = text(part(at - margin, margin));
        tell(at - margin, before + text(part(at, removed)), before + inserted);
        Plain fresh;
        for (const char16_t letter : inserted)
            fresh.emplace_back(letter, unknown);
        replace(at, removed, fresh);
    }
    void paste(int at, int removed, const Timed& moments, const Plain& pasted) {
        tested.apply(at, removed, moments);
        replace(at, removed, pasted);
    }
    void exchange(const Plain& by) {
        paste(0, size(), timed(by), by);
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
    int differences(int from, int count) const {
        int differences = 0;
        for (int at = std::max(from, 0); at < std::min(from + count, size()); ++at) {
            const int start = now[static_cast<std::size_t>(at)].second;
            const auto moment = tested.at(at);
            differences += start != unknown && start != (moment ? moment->start : none);
        }
        return differences;
    }

    Plain now;
    WordMoments tested;

private:
    void tell(int at, const base::Text& removed, const base::Text& inserted) {
        const auto end = now.begin() + at + std::ssize(removed);
        tested.apply({at, removed, inserted, at > 0 ? now.begin()[at - 1].first : u'\0',
                      end < now.end() ? end->first : u'\0'});
    }
    void replace(int at, int removed, const Plain& by) {
        const auto behind = now.erase(now.begin() + at, now.begin() + at + removed);
        now.insert(behind, by.begin(), by.end());
    }
    // Puts back what stood there, and takes out what stands there now.
    void goTo(const Plain& other, void (WordMoments::*putBack)(std::int32_t)) {
        const auto [here, there] = std::ranges::mismatch(now, other);
        const auto [hereEnd, thereEnd] = std::mismatch(now.rbegin(), std::reverse_iterator(here),
                                                       other.rbegin(), std::reverse_iterator(there));
        const Plain gone(here, hereEnd.base());
        const Plain back(there, thereEnd.base());
        const int same = static_cast<int>(here - now.begin());
        (tested.*putBack)(same);
        tell(same, {}, text(back));
        replace(same, 0, back);
        tell(same + static_cast<int>(back.size()), text(gone), {});
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
        const int at = both.upTo(both.size());
        const int rest = both.size() - at;
        const int kind = both.upTo(13);
        if (kind < 4) { // typed, also over a selection
            both.edit(at, both.upTo(8) == 0 ? std::min(both.upTo(20), rest) : 0, both.letters(3));
        } else if (kind < 6) { // deleted
            both.edit(at, std::min(both.upTo(12), rest), {});
        } else if (kind < 8) { // cut and pasted, or dragged
            const int count = std::min(both.upTo(200), rest);
            const Plain cut = both.part(at, count);
            const Timed moments = both.tested.timed(at, count);
            both.paste(at, count, {}, {});
            both.record();
            both.paste(both.upTo(both.size()), 0, moments, cut);
        } else if (kind == 8) { // replaced in many places
            for (int hit = at; hit < std::min(at + 100, both.size() - 2); hit += 20) {
                both.edit(hit, 2, u"wxyz");
                both.record();
            }
        } else if (kind < 12) {
            kind == 11 ? both.redo() : both.undo();
            continue;
        } else if (step % 100 == 0) { // another document now and then, or none
            both.exchange(step % 300 == 0 ? Plain() : transcript(5000, step));
        }
        // The control may tell of two changes at once.
        const int other = both.upTo(both.size());
        if (both.upTo(3) == 0)
            both.edit(other, std::min(both.upTo(3), both.size() - other), both.letters(2));
        both.record();
        ASSERT_EQ(both.tested.length(), both.size()) << step;
        ASSERT_EQ(both.differences(at - 20, 60) + both.differences(both.upTo(both.size()), 60), 0) << step;
        ASSERT_EQ(step % 200 == 0 ? both.differences(0, both.size()) : 0, 0) << step;
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
