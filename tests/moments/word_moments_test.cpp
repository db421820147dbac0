#include "moments/plain_text.h"
#include "testing.h"

using moments::Moment;
using moments::Timed;
using moments::WordMoments;

namespace {

// The moments beside the plain text, with records of both.
class Both {
public:
    Both() { exchange(plain::transcript(5000, 0)); }

    std::size_t upTo(std::size_t limit) { return random_() % (limit + 1); }
    base::Text letters(std::size_t most) {
        base::Text text;
        for (std::size_t i = upTo(most); i > 0; --i)
            text += u"xyz "[upTo(3)];
        return text;
    }

    // As the editor tells it: now and then a stretch that is larger than the change.
    void edit(std::size_t at, std::size_t removed, const base::Text& inserted) {
        const std::size_t margin = std::min(at, upTo(3));
        const base::Text before = now.letters.substr(at - margin, margin);
        tell(at - margin, before + now.letters.substr(at, removed), before + inserted);
        now.replace(at, removed, plain::edited(inserted));
    }
    void paste(std::size_t at, std::size_t removed, const Timed& moments, const plain::Text& pasted) {
        tested.apply(static_cast<int>(at), static_cast<int>(removed), moments);
        now.replace(at, removed, pasted);
    }
    void exchange(const plain::Text& by) {
        paste(0, now.size(), plain::timed(by), by);
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
        const std::size_t end = std::min(from + count, now.size());
        const std::vector<int> seen =
            plain::startsOf(tested.timed(static_cast<int>(from), static_cast<int>(end - from)));
        const int* const starts = now.starts.data() + from;
        int differences = seen.size() != end - from;
        for (std::size_t at = 0; at < seen.size(); ++at)
            differences += starts[at] != plain::unknown && starts[at] != seen[at];
        return differences;
    }

    plain::Text now;
    WordMoments tested;

private:
    void tell(std::size_t at, const base::Text& removed, const base::Text& inserted) {
        const std::size_t end = at + removed.size();
        tested.apply({static_cast<int>(at), removed, inserted, at > 0 ? now.letters[at - 1] : u'\0',
                      end < now.size() ? now.letters[end] : u'\0'});
    }
    // Puts back what stood there, and takes out what stands there now.
    void goTo(const plain::Text& other, void (WordMoments::*putBack)(std::int32_t)) {
        const auto [begin, gone, back] = plain::difference(now, other);
        (tested.*putBack)(static_cast<int>(begin));
        tell(begin, {}, other.letters.substr(begin, back));
        now.replace(begin, 0, other.part(begin, back));
        tell(begin + back, now.letters.substr(begin + back, gone), {});
        now = other;
    }

    std::mt19937 random_{11};
    std::deque<plain::Text> done_;
    std::vector<plain::Text> undone_;
};

} // namespace

TEST(WordMoments, TenThousandEdits_OfEveryKind_LeaveEachLetterTheMomentThatItHad) {
    Both both;
    for (int step = 0; step < 10'000; ++step) {
        const std::size_t at = both.upTo(both.now.size());
        const std::size_t rest = both.now.size() - at;
        const std::size_t kind = both.upTo(13);
        if (kind < 4) { // typed, also over a selection
            both.edit(at, both.upTo(8) == 0 ? std::min(both.upTo(20), rest) : 0, both.letters(3));
        } else if (kind < 6) { // deleted
            both.edit(at, std::min(both.upTo(12), rest), {});
        } else if (kind < 8) { // cut and pasted, or dragged
            const std::size_t count = std::min(both.upTo(200), rest);
            const plain::Text cut = both.now.part(at, count);
            const Timed moments = both.tested.timed(static_cast<int>(at), static_cast<int>(count));
            both.paste(at, count, {}, {});
            both.record();
            both.paste(both.upTo(both.now.size()), 0, moments, cut);
        } else if (kind == 8) { // replaced in many places
            for (std::size_t hit = at; hit + 2 < std::min(at + 100, both.now.size()); hit += 20) {
                both.edit(hit, 2, u"wxyz");
                both.record();
            }
        } else if (kind < 12) {
            kind == 11 ? both.redo() : both.undo();
            continue;
        } else if (step % 100 == 0) { // another document now and then, or none
            both.exchange(step % 300 == 0 ? plain::Text() : plain::transcript(5000, step));
        }
        // The control may tell of two changes at once.
        const std::size_t other = both.upTo(both.now.size());
        if (both.upTo(3) == 0)
            both.edit(other, std::min(both.upTo(3), both.now.size() - other), both.letters(2));
        both.record();
        ASSERT_EQ(both.tested.length(), std::ssize(both.now.letters)) << step;
        ASSERT_EQ(both.differences(at > 20 ? std::min(at - 20, both.now.size()) : 0, 60), 0) << step;
        ASSERT_EQ(step % 10 == 0 ? both.differences(0, both.now.size()) : 0, 0) << step;
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
    // Words that were spoken in the reverse order.
    Timed reversed;
    for (int word = 100; word > 0; --word)
        reversed.runs.push_back({1, Moment{.start = 1000 * word}});
    moments.apply(0, 17, reversed);
    for (int word = 1; word <= 100; ++word)
        EXPECT_EQ(moments.heardAt(1000 * word), 100 - word);
}
