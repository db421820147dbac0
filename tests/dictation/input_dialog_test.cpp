#include "fakes/workbench.h"

// Pauses go 2 s back, steps are 5 s, phases 5 s and 3 s.
class InputDialogTest : public testing::Test {
protected:
    InputDialogTest() { bench.speakPlainly(); }

    // The command opens the dialog; the user types and presses OK.
    void answer(controls::MenuItem& command, base::TextView typed) {
        bench.desktop.dialogPort.boxes.clear();
        bench.desktop.inForm4 = [&, typed] {
            dialog.Text1.text = base::Text(typed);
            dialog.Command1.Click();
            EXPECT_FALSE(dialog.visible) << base::toUtf8(typed);
        };
        command.Click();
    }
    // Line n of the settings file; the file is not read again before the next start.
    int saved(int line) {
        std::istringstream lines(bench.desktop.folder.read("Files/Quillmere.ini"));
        std::string text;
        while (line-- > 0)
            std::getline(lines, text);
        return std::stoi(text);
    }

    fakes::Workbench bench;
    player::Form1& form = bench.form();
    dictation::Form4& dialog = *bench.desktop.form4;
};

TEST_F(InputDialogTest, Commands_OpenItFilled_AndRaiseTooSmallAValue) {
    struct Row {
        controls::MenuItem& command;
        base::Text caption, prompt, value, tooSmall, floor;
    };
    const Row rows[] = {{form.mnuSecIndietro, u"T32", u"T31", u"2", u"", u""},
                        {form.mnuSalto, u"T35", u"T34", u"5", u"1", u"2"},
                        {form.mnuTempoPlay, u"T124", u"T125 (5)", u"5", u"", u""},
                        {form.mnuTempoPause, u"T124", u"T126 (3)", u"3", u"", u""},
                        {form.mnuVai, u"T39", u"T38", u"", u"", u""}};
    bench.open("a.mp3", 600);
    for (const Row& row : rows) {
        const auto expectOpen = [&](const base::Text& value) {
            bench.desktop.inForm4 = [&, value] {
                EXPECT_EQ(dialog.caption.get(), row.caption);
                EXPECT_EQ(dialog.Label1.caption.get(), row.prompt);
                EXPECT_EQ(dialog.Text1.text.get(), value);
                EXPECT_EQ(dialog.Text1.selStart, 0);
                EXPECT_EQ(dialog.Text1.selLength, static_cast<int>(value.size()));
                EXPECT_EQ(dialog.Command1.caption.get() + dialog.Command2.caption.get(), u"T20T21");
                EXPECT_EQ(dialog.icon.get(), form.icon.get());
                EXPECT_EQ(dialog.left + dialog.width / 2, form.screen.width / 2);
                dialog.Text1.text = u"7";
                row.command.Click(); // is open already
                dialog.Command2.Click();
            };
            row.command.Click();
        };
        expectOpen(row.value);
        if (!row.tooSmall.empty()) {
            answer(row.command, row.tooSmall);
            expectOpen(row.floor);
        }
    }
}

TEST_F(InputDialogTest, Numbers_AreReadRoundedCorrectedAndSaved) {
    struct Row {
        controls::MenuItem& command;
        int line;
        base::Text typed;
        int value;
        base::Text warning;
    };
    const Row rows[] = {
        {form.mnuSecIndietro, 5, u"0", 0, u""},
        {form.mnuSecIndietro, 5, u"-1", 0, u"T40 0."},
        {form.mnuSecIndietro, 5, u"20", 20, u""},
        {form.mnuSecIndietro, 5, u"21", 20, u"T33 20."},
        {form.mnuSecIndietro, 5, u"0.5", 0, u""},
        {form.mnuSalto, 4, u"0", 1, u"T40 1."},
        {form.mnuSalto, 4, u"75", 60, u"T33 60."},
        {form.mnuSalto, 4, u"40000", 60, u""},
        {form.mnuSalto, 4, u"1e999", 60, u""},
        {form.mnuSalto, 4, u"-1e999", 60, u""},
        {form.mnuTempoPlay, 21, u"2", 3, u"T40 3."},
        {form.mnuTempoPlay, 21, u"12abc", 12, u""},
        {form.mnuTempoPlay, 21, u"abc", 3, u"T40 3."},
        {form.mnuTempoPlay, 21, u"\u0665", 3, u"T40 3."},
        {form.mnuTempoPlay, 21, u"\t +8", 8, u""},
        {form.mnuTempoPlay, 21, u"5,9", 5, u""},
        {form.mnuTempoPlay, 21, u"0x10", 3, u"T40 3."},
        {form.mnuTempoPause, 22, u"2.5", 2, u""},
        {form.mnuTempoPause, 22, u"3.5", 4, u""},
        {form.mnuTempoPause, 22, u"-", 1, u"T40 1."},
        {form.mnuTempoPause, 22, u"1e1 s", 10, u""},
        {form.mnuTempoPause, 22, u"   ", 10, u""},
        {form.mnuTempoPause, 22, u"", 10, u""},
        {form.mnuTempoPause, 22, base::Text(10000, u'9'), 10, u""},
    };
    for (const Row& row : rows) {
        answer(row.command, row.typed);
        EXPECT_EQ(saved(row.line), row.value) << base::toUtf8(row.typed);
        const auto& boxes = bench.desktop.dialogPort.boxes;
        EXPECT_EQ(boxes.empty() ? base::Text() : boxes[0].text, row.warning) << base::toUtf8(row.typed);
        EXPECT_TRUE(boxes.empty() || boxes[0].title == u"T1");
    }
}

TEST_F(InputDialogTest, GoTo_StepsBackAtRestOnly) {
    struct Row {
        bool playing;
        base::Text typed;
        double place;
    };
    const Row rows[] = {{true, u"90", 90},   {false, u"90", 88},   {true, u"abc", 0},
                        {false, u"abc", -2}, {true, u"1.5x", 1.5}, {false, u"  ", -0.5}};
    bench.open("a.mp3", 600);
    bench.desktop.loop.advance(100);
    for (const Row& row : rows) {
        if (form.isPlaying() != row.playing)
            form.cmdPlay.Click();
        bench.desktop.player.commands.clear();
        answer(form.mnuVai, row.typed);
        EXPECT_EQ(bench.desktop.player.currentPosition(), row.place) << base::toUtf8(row.typed);
        EXPECT_EQ(form.isPlaying(), row.playing);
    }
}

TEST_F(InputDialogTest, Cycle_RunsOnBehindIt_AndClosingItChangesNothing) {
    form.mnuSmartPlay.Click();
    bench.open("a.mp3", 600);
    bench.desktop.inForm4 = [&] {
        bench.desktop.loop.advance(5000);
        EXPECT_FALSE(form.isPlaying());
        dialog.Text1.text = u"9";
        dialog.Unload();
        EXPECT_FALSE(dialog.visible);
    };
    form.mnuTempoPause.Click();
    EXPECT_EQ(saved(22), 3);
    // A phase that runs keeps its length, the next one has the new.
    answer(form.mnuTempoPause, u"1");
    bench.desktop.loop.advance(3000);
    EXPECT_TRUE(form.isPlaying());
    bench.desktop.loop.advance(6000);
    EXPECT_TRUE(form.isPlaying());
}

TEST(InputDialogWithMnemonics, CaptionsThatLostTheirMark_AreTakenForTheStep) {
    fakes::Workbench bench;
    bench.desktop.inForm4 = [&] {
        bench.desktop.form4->Text1.text = u"44";
        bench.desktop.form4->Command1.Click();
    };
    bench.form().mnuVai.Click();
    EXPECT_NE(bench.desktop.folder.read("Files/Quillmere.ini").find("\r\n44\r\n"), std::string::npos);
}
