#include "editor/clipboard_forms.h"
#include "fakes/editor_bench.h"
#include "moments/layer.h"
#include "moments/plain_text.h"

namespace {

constexpr std::size_t keptRecords = 8;
constexpr int wordLength = 5;

} // namespace

// The editor's text of 5,000 timed words beside a plain one.
class ManyEditsTest : public fakes::EditorBench {
protected:
    ManyEditsTest() { typing.Form_Load(); }

    std::size_t upTo(std::size_t limit) { return random_() % (limit + 1); }
    void write(std::size_t at, std::size_t removed, const base::Text& letters) {
        select(static_cast<int>(at), static_cast<int>(removed));
        text.setSelText(letters);
        now_.replace(at, removed, plain::edited(letters));
        record();
    }
    // Another document, with its layer.
    void open(int words, int firstStart) {
        now_ = plain::transcript(words, firstStart);
        const moments::Layer layer{{}, 0, plain::timed(now_)};
        select(0, text.textLength());
        text.insert(now_.letters, words == 0 ? std::string() : moments::pack(layer, now_.letters));
        record();
    }
    // Cut and pasted, as a drag within the text also does.
    void move(std::size_t at, std::size_t count) {
        select(static_cast<int>(at), static_cast<int>(count));
        clipboard_.mnuTaglia_Click();
        const plain::Text cut = now_.part(at, count);
        now_.replace(at, count, {});
        record();
        const std::size_t place = upTo(now_.letters.size());
        text.setSelStart(static_cast<int>(place));
        clipboard_.mnuIncolla_Click();
        now_.replace(place, 0, cut);
        record();
    }
    void replaceAll(base::TextView wanted, const base::Text& by) {
        text.together([&] {
            std::size_t hits = 0;
            for (std::size_t hit = now_.letters.find(wanted); hit != base::Text::npos && hits < 5;
                 hit = now_.letters.find(wanted, hit + by.size()), ++hits)
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
        from = from == 0 ? 0 : now_.letters.find(u' ', from - 1) + 1; // 0 if there is none
        const std::size_t end = std::min(from + count, now_.size());
        const std::vector<int> seen =
            plain::startsOf(undoRedo.moments().timed(static_cast<int>(from), static_cast<int>(end - from)));
        const char16_t* const letters = now_.letters.data();
        const int* const starts = now_.starts.data();
        int differences = seen.size() != end - from;
        int same = 0; // letters of one word, up to here
        for (std::size_t at = from; at < end; ++at) {
            const bool begins = at == 0 || letters[at - 1] == u' ';
            same = begins ? 1 : starts[at] == starts[at - 1] ? same + 1 : -wordLength;
            const bool isWord = same == wordLength && (at + 1 == now_.size() || letters[at + 1] == u' ');
            if (isWord && starts[at] >= 0)
                differences += seen[at + 1 - wordLength - from] != starts[at];
        }
        return differences;
    }

    plain::Text now_;

private:
    void record() {
        undone_.clear();
        done_.push_back(now_);
        if (done_.size() > keptRecords)
            done_.pop_front();
    }
    void goTo(const plain::Text& other) {
        const base::Text shown = text.Text();
        const plain::Difference more = plain::difference(shown, other.letters);
        if (more.first == 0 && more.second == 0) {
            now_ = other;
            return;
        }
        const auto [begin, fresh, gone] = plain::difference(shown, now_.letters);
        now_.replace(begin, gone, plain::edited(shown.substr(begin, fresh)));
    }

    editor::ClipboardForms clipboard_{form, desktop.clipboardPort};
    std::mt19937 random_{5};
    std::deque<plain::Text> done_;
    std::vector<plain::Text> undone_;
};

TEST_F(ManyEditsTest, TenThousandEdits_OfEveryKind_LeaveEachUneditedWordItsMoment) {
    open(5000, 0);
    for (int step = 0; step < 10'000; ++step) {
        const std::size_t at = upTo(now_.letters.size());
        const std::size_t rest = now_.letters.size() - at;
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
        const base::Text shown = text.Text();
        ASSERT_EQ(shown.size(), now_.size()) << step;
        ASSERT_EQ(plain::difference(shown, now_.letters).first, 0U) << step;
        ASSERT_EQ(differences(at > 20 ? at - 20 : 0, 60), 0) << step;
        ASSERT_EQ(step % 10 == 0 ? differences(0, now_.size()) : 0, 0) << step;
    }
}
