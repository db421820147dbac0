#include "editor/clipboard_forms.h"
#include "fakes/editor_bench.h"
#include "moments/layer.h"
#include "moments/word_units.h"

using moments::Moment;

namespace {

constexpr int unknown = -2; // of letters that were edited
constexpr int none = -1;
constexpr std::size_t keptRecords = 8;
constexpr std::size_t wordLength = 5;

// A text that keeps a moment with each letter: the start of its word, in ms.
struct Plain {
    base::Text text;
    std::vector<int> starts;

    void replace(std::size_t at, std::size_t removed, const Plain& by) {
        text.replace(at, removed, by.text);
        const auto from = starts.begin() + static_cast<std::ptrdiff_t>(at);
        starts.insert(starts.erase(from, from + static_cast<std::ptrdiff_t>(removed)), by.starts.begin(),
                      by.starts.end());
    }
    Plain part(std::size_t at, std::size_t count) const {
        const auto from = starts.begin() + static_cast<std::ptrdiff_t>(at);
        return {text.substr(at, count), {from, from + static_cast<std::ptrdiff_t>(count)}};
    }
    static Plain edited(const base::Text& text) { return {text, std::vector<int>(text.size(), unknown)}; }
};

} // namespace

// The editor's text of 5,000 timed words beside a plain one.
class ManyEditsTest : public fakes::EditorBench {
protected:
    ManyEditsTest() { typing.Form_Load(); }

    std::size_t upTo(std::size_t limit) { return random_() % (limit + 1); }
    void write(std::size_t at, std::size_t removed, const base::Text& letters) {
        select(static_cast<int>(at), static_cast<int>(removed));
        text.setSelText(letters);
        now_.replace(at, removed, Plain::edited(letters));
        record();
    }
    // Another document, with its layer.
    void open(int words, int firstStart) {
        Plain fresh;
        moments::Layer layer;
        for (int word = 0; word < words; ++word) {
            const base::Text letters = base::fromUtf8(std::to_string(10'000 + word));
            fresh.replace(fresh.text.size(), 0,
                          {letters, std::vector<int>(letters.size(), firstStart + 300 * word)});
            fresh.replace(fresh.text.size(), 0, {u" ", {none}});
        }
        for (const int start : fresh.starts)
            layer.timed.runs.push_back(
                {1, start == none ? std::nullopt : std::optional(Moment{.start = start})});
        select(0, text.textLength());
        text.insert(fresh.text, words == 0 ? std::string() : moments::pack(layer, fresh.text));
        now_ = fresh;
        record();
    }
    // Cut and pasted, as a drag within the text also does.
    void move(std::size_t at, std::size_t count) {
        select(static_cast<int>(at), static_cast<int>(count));
        clipboard_.mnuTaglia_Click();
        const Plain cut = now_.part(at, count);
        now_.replace(at, count, {});
        record();
        const std::size_t place = upTo(now_.text.size());
        text.setSelStart(static_cast<int>(place));
        clipboard_.mnuIncolla_Click();
        now_.replace(place, 0, cut);
        record();
    }
    void replaceAll(base::TextView wanted, const base::Text& by) {
        text.together([&] {
            std::size_t hits = 0;
            for (std::size_t hit = now_.text.find(wanted); hit != base::Text::npos && hits < 5;
                 hit = now_.text.find(wanted, hit + by.size()), ++hits)
                write(hit, wanted.size(), by);
        });
    }
    // The rules of undo restore insertions and deletions, but not every replacement.
    void undo() {
        if (done_.size() < 2)
            return;
        undoRedo.EseguiUndo();
        undone_.push_back(done_.back());
        done_.pop_back();
        goTo(done_.back());
    }
    void redo() {
        if (undone_.empty())
            return;
        undoRedo.EseguiRedo();
        done_.push_back(undone_.back());
        undone_.pop_back();
        goTo(done_.back());
    }
    // Of the words that nobody has edited, those with another moment.
    int differences(std::size_t from, std::size_t count) {
        int differences = 0;
        for (std::size_t at = from; at < std::min(from + count, now_.text.size()); ++at) {
            const auto [begin, length] = moments::wordAround(now_.text, at);
            const auto first = now_.starts.begin() + static_cast<std::ptrdiff_t>(begin);
            const bool isWhole =
                length == wordLength && std::count(first, first + wordLength, *first) == wordLength;
            const auto moment = undoRedo.moments().at(static_cast<int>(begin));
            differences += isWhole && *first >= 0 && (!moment || moment->start != *first);
            at = std::max(at, begin + length);
        }
        return differences;
    }

    Plain now_;

private:
    void record() {
        undone_.clear();
        done_.push_back(now_);
        if (done_.size() > keptRecords)
            done_.pop_front();
    }
    void goTo(const Plain& other) {
        if (text.Text() == other.text) {
            now_ = other;
            return;
        }
        const base::Text shown = text.Text();
        const auto same =
            std::mismatch(shown.begin(), shown.end(), now_.text.begin(), now_.text.end()).first -
            shown.begin();
        const auto least = std::min(shown.size(), now_.text.size()) - static_cast<std::size_t>(same);
        std::size_t tail = 0;
        while (tail < least && shown[shown.size() - 1 - tail] == now_.text[now_.text.size() - 1 - tail])
            ++tail;
        const auto begin = static_cast<std::size_t>(same);
        now_.replace(begin, now_.text.size() - begin - tail,
                     Plain::edited(shown.substr(begin, shown.size() - begin - tail)));
    }

    editor::ClipboardForms clipboard_{form, desktop.clipboardPort};
    std::mt19937 random_{5};
    std::deque<Plain> done_;
    std::vector<Plain> undone_;
};

TEST_F(ManyEditsTest, TenThousandEdits_OfEveryKind_LeaveEachUneditedWordItsMoment) {
    open(5000, 0);
    for (int step = 0; step < 10'000; ++step) {
        const std::size_t at = upTo(now_.text.size());
        const std::size_t rest = now_.text.size() - at;
        switch (upTo(12)) {
        case 0:
        case 1:
        case 2:
        case 3:
            write(at, upTo(8) == 0 ? std::min(upTo(20), rest) : 0, base::Text(1, u"xyz "[upTo(3)]));
            break;
        case 4:
        case 5:
            if (rest > 0)
                write(at, std::min(1 + upTo(12), rest), {});
            break;
        case 6:
        case 7:
            if (rest > 0)
                move(at, std::min(1 + upTo(200), rest));
            break;
        case 8:
            replaceAll(u"37", u"wxyz");
            break;
        case 9:
        case 10:
            undo();
            break;
        case 11:
            redo();
            break;
        default:
            if (step % 25 == 0)
                open(step % 100 == 0 ? 0 : 5000, step);
        }
        ASSERT_EQ(text.Text(), now_.text) << step;
        ASSERT_EQ(differences(at > 20 ? at - 20 : 0, 60), 0) << step;
        ASSERT_EQ(differences(upTo(now_.text.size()), 60), 0) << step;
        ASSERT_EQ(step % 200 == 0 ? differences(0, now_.text.size()) : 0, 0) << step;
    }
}
