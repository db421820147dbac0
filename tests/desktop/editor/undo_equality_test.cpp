#include "fakes/whole_copy_undo.h"
#include "rich_text_fixture.h"

#include <QApplication>
#include <QKeyEvent>
#include <random>

namespace {

// Two controls go through the same edits, one with the program's undo, one with whole copies.
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

    // What a user and the program do to a text; the same for both.
    void edit(desktop::RichTextEdit& control, std::mt19937 random) {
        const auto upTo = [&](std::int32_t limit) {
            return static_cast<std::int32_t>(random() % static_cast<unsigned>(limit + 1));
        };
        const auto press = [&](int key, const QString& text = {}) {
            QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
            QApplication::sendEvent(&control, &event);
        };
        const base::TextView pieces[] = {u"x",      u"\xD83D\xDE00", u"\r\n",   u"word ", u"a\r\nb\r\nc",
                                         u"\xD83D", u"\xDE00",       u"\u000B", u"",      u"equal"};
        if (upTo(2) == 0) {
            control.setSelStart(upTo(control.textLength()));
            control.setSelLength(upTo(3) == 0 ? upTo(30) : 0);
        }
        const std::function<void()> edits[] = {
            [&] { press(Qt::Key_Return, QStringLiteral("\r")); },
            [&] { press(Qt::Key_Backspace); },
            [&] { press(Qt::Key_Delete); },
            [&] { control.setSelText(pieces[upTo(9)]); },
            [&] { control.setSelRTF(u"{\\rtf1 a{\\b b}\\par\\u-10179?\\u-8704?}"); },
            [&] { control.setSelBold(upTo(1) == 0); },
            [&] { control.setSelBullet(upTo(1) == 0); },
            [&] {
                if (upTo(30) == 0)
                    control.setText(u"a new text\r\n\U0001F600\r\nof three lines");
            },
            [&] { // as Replace All does
                control.together([&] {
                    for (int i = 0; i < 3; ++i) {
                        control.setSelStart(upTo(control.textLength()));
                        control.setSelLength(upTo(8));
                        control.setSelRTF(pieces[upTo(9)]);
                    }
                });
            },
            [&] { press(Qt::Key_X, QStringLiteral("x")); },
        };
        edits[std::min(upTo(12), 9)]();
    }
    void expectTheSame() {
        ASSERT_EQ(rtb.Text(), plainRtb.Text());
        ASSERT_EQ(rtb.SelStart(), plainRtb.SelStart());
        ASSERT_EQ(rtb.SelLength(), plainRtb.SelLength());
        ASSERT_EQ(undoRedo.ListaUndo().size(), plain.done.size());
        ASSERT_EQ(undoRedo.ListaRedo().size(), plain.undone.size());
    }
    static void expectTheSameRecords(const std::deque<editor::UndoElement>& records,
                                     const std::vector<fakes::WholeCopyUndo::Record>& expected) {
        for (std::size_t i = 0; i < expected.size(); ++i) {
            ASSERT_EQ(records[i].Text.text(), expected[i].Text) << i;
            ASSERT_EQ(records[i].SelStart, expected[i].SelStart);
            ASSERT_EQ(records[i].TextLen, static_cast<std::int32_t>(expected[i].Text.size()));
        }
    }

    tests::Control rtb{base::CodePage(1252)};
    tests::Control plainRtb{base::CodePage(1252)};
    editor::UndoRedo undoRedo{rtb};
    fakes::WholeCopyUndo plain{plainRtb};
};

} // namespace

TEST_P(UndoEquality, ThousandsOfEditsUndosAndRedos_GoAsWithWholeCopies) {
    std::mt19937 random(GetParam());
    for (int step = 0; step < 2500; ++step) {
        // Rounds of edits, of undos, of redos, and of all of them.
        const unsigned round = static_cast<unsigned>(step) / 40 % 4;
        const unsigned what = random() % 30 == 0 || round == 3 ? random() % 3 : round;
        if (what == 1) {
            undoRedo.EseguiUndo();
            plain.undo();
        } else if (what == 2) {
            undoRedo.EseguiRedo();
            plain.redo();
        } else {
            const std::mt19937 same = random;
            edit(rtb, same);
            edit(plainRtb, same);
            random.discard(4);
        }
        expectTheSame();
        ASSERT_FALSE(HasFatalFailure()) << "step " << step;
    }
    expectTheSameRecords(undoRedo.ListaUndo(), plain.done);
    expectTheSameRecords(undoRedo.ListaRedo(), plain.undone);
}

INSTANTIATE_TEST_SUITE_P(Seeds, UndoEquality, testing::Range(1U, 5U));
