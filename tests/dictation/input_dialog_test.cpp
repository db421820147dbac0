#include "fakes/workbench.h"

// Pauses step back 2 s, steps are 5 s, phases 5 s and 3 s.
struct InputDialogTest : fakes::WorkbenchTest {
    InputDialogTest() { speakPlainly(); }

    // Runs the command, which opens the dialog; types the text and presses OK.
    void answer(controls::MenuItem& command, const base::Text& typed) {
        boxes.clear();
        desktop.inForm4 = [&, typed] {
            dialog.Text1.text = typed;
            dialog.Command1.Click();
            EXPECT_FALSE(dialog.visible) << base::toUtf8(typed);
        };
        command.Click();
    }
    // Opens the dialog and presses Cancel; returns what it showed.
    base::Text shown(controls::MenuItem& command) {
        base::Text seen;
        desktop.inForm4 = [&] {
            seen = dialog.caption.get() + u'|' + dialog.Label1.caption.get() + u'|' + dialog.Text1.text.get();
            EXPECT_EQ(dialog.top, (form.screen.height - dialog.height) / 2);
            EXPECT_EQ(dialog.Text1.selLength, static_cast<int>(dialog.Text1.text->size()));
            dialog.Text1.text = u"7";
            command.Click(); // the dialog is already open
            dialog.Command2.Click();
        };
        command.Click();
        return seen;
    }

    player::Form1& form = Workbench::form();
    dictation::Form4& dialog = *desktop.form4;
};

TEST_F(InputDialogTest, Commands_OpenItWithTheCurrentValue_AndRaiseATooSmallStep) {
    const std::pair<controls::MenuItem&, base::TextView> rows[] = {{form.mnuSecIndietro, u"T32|T31|2"},
                                                                   {form.mnuSalto, u"T35|T34|5"},
                                                                   {form.mnuTempoPlay, u"T124|T125 (5)|5"},
                                                                   {form.mnuTempoPause, u"T124|T126 (3)|3"},
                                                                   {form.mnuVai, u"T39|T38|"}};
    for (const auto& [command, expected] : rows) {
        EXPECT_EQ(shown(command), expected);
        EXPECT_EQ(shown(command), expected) << "cancelled input is not kept";
    }
    answer(form.mnuSalto, u"1");
    EXPECT_EQ(shown(form.mnuSalto), u"T35|T34|2");
}

TEST_F(InputDialogTest, Numbers_AreParsedCorrectedAndSaved) {
    // The number is a line of the settings file.
    const std::tuple<controls::MenuItem&, int, base::Text, std::string, base::Text> rows[] = {
        {form.mnuSecIndietro, 5, u"-1", "0", u"T40 0."},
        {form.mnuSecIndietro, 5, u"21", "20", u"T33 20."},
        {form.mnuSalto, 4, u"0", "1", u"T40 1."},
        {form.mnuSalto, 4, u"75", "60", u"T33 60."},
        {form.mnuSalto, 4, u"40000", "60", u""},
        {form.mnuTempoPlay, 21, u"2", "3", u"T40 3."},
        {form.mnuTempoPlay, 21, u"12abc", "12", u""},
        {form.mnuTempoPlay, 21, u"abc", "3", u"T40 3."},
        {form.mnuTempoPause, 22, u"1e1 s", "10", u""},
        {form.mnuTempoPause, 22, u"   ", "10", u""},
        {form.mnuTempoPause, 22, base::Text(10000, u'9'), "10", u""},
    };
    for (const auto& [command, line, typed, saved, warning] : rows) {
        SCOPED_TRACE(base::toUtf8(typed));
        answer(command, typed);
        EXPECT_EQ(desktop.savedLine(line), saved);
        EXPECT_EQ(boxes.empty() ? base::Text() : boxes[0].text, warning);
    }
}

TEST_F(InputDialogTest, GoTo_StepsBack_OnlyWhilePaused) {
    open("a.mp3", 600);
    desktop.loop.advance(100);
    for (const auto& [playing, typed, place] :
         {std::tuple{true, u"90", 90.}, {true, u"1.5x", 1.5}, {false, u"90", 88.}, {false, u"abc", 0.}}) {
        if (form.isPlaying() != playing)
            form.cmdPlay.Click();
        answer(form.mnuVai, typed);
        EXPECT_EQ(player.currentPosition(), place);
        EXPECT_EQ(form.isPlaying(), playing);
    }
}

TEST_F(InputDialogTest, Cycle_ContinuesBehindIt_AndClosingChangesNothing) {
    form.mnuSmartPlay.Click();
    open("a.mp3", 600);
    desktop.inForm4 = [&] {
        desktop.loop.advance(5000);
        EXPECT_FALSE(form.isPlaying());
        dialog.Text1.text = u"9";
        dialog.Unload();
        EXPECT_FALSE(dialog.visible);
    };
    form.mnuTempoPause.Click();
    EXPECT_EQ(desktop.savedLine(22), "3");
}

TEST(InputDialogWithMnemonics, CaptionWithAMnemonic_IsMistakenForTheStepDialog) {
    fakes::Workbench bench;
    bench.desktop.inForm4 = [&] {
        bench.desktop.form4->Text1.text = u"44";
        bench.desktop.form4->Command1.Click();
    };
    bench.form().mnuVai.Click();
    EXPECT_EQ(bench.desktop.savedLine(4), "44");
}
