#include "editor/undo_redo.h"
#include "rich_text_fixture.h"

namespace {

// A reference implementation of undo and redo: each record is a full copy of the text, and nothing is shared.
// The program's own must behave identically.
class WholeCopyUndo {
public:
    struct Record {
        std::int32_t SelStart;
        base::Text Text;
    };

    explicit WholeCopyUndo(platform::RichText& text) : RTB(text) {
        RTB.Change = [this] {
            if (recording)
                capture();
        };
        capture();
    }

    void undo() {
        if (done.size() < 2)
            return;
        const Record last = done.back();
        undone.push_back(last);
        done.pop_back();
        const base::Text& before = done.back().Text;
        const std::int32_t more = length(before) - length(last.Text);
        if (more < 0)
            write(last.SelStart + more, -more, u"");
        else
            putIn(last.SelStart, before, more);
    }
    void redo() {
        if (undone.empty())
            return;
        const Record next = undone.back();
        done.push_back(next);
        undone.pop_back();
        const std::int32_t more = length(next.Text) - RTB.textLength();
        if (more < 0)
            write(next.SelStart, -more, u"");
        else if (next.SelStart >= more)
            putIn(next.SelStart - more, next.Text, more);
        else
            putIn(next.SelStart, next.Text, 0); // otherwise the difference would begin before the text
    }

    platform::RichText& RTB;
    std::vector<Record> done;
    std::vector<Record> undone;

private:
    static std::int32_t length(const base::Text& text) { return static_cast<std::int32_t>(text.size()); }
    void capture() {
        undone.clear();
        done.push_back({RTB.SelStart(), RTB.Text()});
    }
    void write(std::int32_t at, std::int32_t removed, base::TextView text) {
        recording = false;
        RTB.setSelStart(at);
        RTB.setSelLength(removed);
        RTB.setSelText(text);
        recording = true;
    }
    // Inserts a range of the text and selects it, unless it is a single character or a line end.
    void putIn(std::int32_t at, const base::Text& whole, std::int32_t count) {
        const base::Text text = whole.substr(static_cast<std::size_t>(at), static_cast<std::size_t>(count));
        write(at, 0, text);
        RTB.setSelStart(at);
        if (text.size() < 2 || text == u"\r\n")
            RTB.setSelStart(RTB.SelStart() + length(text));
        else
            RTB.setSelLength(length(text));
    }

    bool recording = true;
};

// Two controls receive the same edits, one with the program's undo, one with the reference implementation.
class UndoEquality : public testing::TestWithParam<unsigned> {
protected:
    UndoEquality() {
        rtb.Change = [this] {
            if (undoRedo.RegistraUndo)
                undoRedo.record();
        };
        undoRedo.RegistraUndo = true;
        undoRedo.record();
    }

    void expectTheSame() {
        ASSERT_EQ(rtb.Text(), plainRtb.Text());
        ASSERT_EQ(rtb.SelStart(), plainRtb.SelStart());
        ASSERT_EQ(rtb.SelLength(), plainRtb.SelLength());
        ASSERT_EQ(undoRedo.ListaUndo().size(), plain.done.size());
        ASSERT_EQ(undoRedo.ListaRedo().size(), plain.undone.size());
    }
    static void expectTheSameRecords(const std::deque<editor::UndoElement>& records,
                                     const std::vector<WholeCopyUndo::Record>& expected) {
        for (std::size_t i = 0; i < expected.size(); ++i) {
            ASSERT_EQ(records[i].Text.text(), expected[i].Text) << i;
            ASSERT_EQ(records[i].SelStart, expected[i].SelStart);
            ASSERT_EQ(records[i].TextLen, static_cast<std::int32_t>(expected[i].Text.size()));
        }
    }

    tests::Control rtb{base::CodePage(1252)};
    tests::Control plainRtb{base::CodePage(1252)};
    editor::UndoRedo undoRedo{rtb};
    WholeCopyUndo plain{plainRtb};
};

} // namespace

TEST_P(UndoEquality, ThousandsOfEditsUndosAndRedos_EqualTheReference) {
    std::mt19937 random(GetParam());
    tests::RandomEdits edits(GetParam());
    edits.pieces.insert(edits.pieces.end(), {u"\xD83D", u"\xDE00"}); // halves of a surrogate pair
    for (int step = 0; step < 2500; ++step) {
        // Rounds of edits, of undos, of redos, and of all mixed.
        const unsigned round = static_cast<unsigned>(step) / 40 % 4;
        const unsigned what = random() % 30 == 0 || round == 3 ? random() % 3 : round;
        if (what == 1) {
            undoRedo.EseguiUndo();
            plain.undo();
        } else if (what == 2) {
            undoRedo.EseguiRedo();
            plain.redo();
        } else {
            tests::RandomEdits same = edits;
            edits.edit(rtb);
            same.edit(plainRtb);
        }
        expectTheSame();
        ASSERT_FALSE(HasFatalFailure()) << "step " << step;
    }
    expectTheSameRecords(undoRedo.ListaUndo(), plain.done);
    expectTheSameRecords(undoRedo.ListaRedo(), plain.undone);
}

INSTANTIATE_TEST_SUITE_P(Seeds, UndoEquality, testing::Range(1U, 5U));
