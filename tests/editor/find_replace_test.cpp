#include "editor/find_replace.h"
#include "fakes/editor_bench.h"

using testing::ElementsAre;

struct FindReplaceTest : fakes::EditorBench {
    // The text with its selection, the state shown by the captions, and the messages since the last call.
    std::string seen() {
        std::string told = shown();
        told += find.cmdFind.caption.get() == u"&" + Lingua(56) ? " top" : " next";
        told += find.cmdReplace.caption.get() == Lingua(59) ? " armed" : "";
        for (const auto& box : dialogs.boxes)
            told += " <" + base::toUtf8(base::replaced(box.text, u"\r\n", u"/")) + ">";
        dialogs.boxes.clear();
        return told;
    }
    // F: find, R: replace, A: replace all, C: choose an entry from the list, v: move the caret, s: select.
    void press(const std::string& keys) {
        const std::map<char, std::function<void()>> actions{
            {'F', find.cmdFind.Click}, {'R', find.cmdReplace.Click},    {'A', find.cmdReplaceAll.Click},
            {'C', find.cboFind.Click}, {'v', [this] { select(4, 0); }}, {'s', [this] { select(4, 3); }}};
        for (const char key : keys)
            actions.at(key)();
    }

    editor::FrmFind find{desktop.loop};
    editor::FindReplace routines{find, form, dialogs};
};

TEST_F(FindReplaceTest, Buttons_FollowTheStateInTheirCaptions) {
    // Ticks: w is whole words, c match case.
    const std::tuple<base::TextView, base::TextView, base::TextView, const char*, const char*, const char*>
        rows[] = {
            {u"one two one", u"one", u"", "", "FFFF", "[one] two one next <En66>"},
            {u"one two one", u"three", u"", "", "FF", "|one two one top <En65> <En65>"},
            {u"one two one", u"one", u"", "", "FvF", "one two [one] next"},
            {u"one two one", u"one", u"", "", "FFCF", "[one] two one next"},
            {u"ones One one", u"one", u"", "w", "F", "ones [One] one next"},
            {u"ones One one", u"one", u"", "c", "FF", "ones One [one] next"},
            {u"one", u"", u"x", "", "FRR", "|one top <En65> <En65> <En65>"},
            {u"", u"one", u"x", "", "FRA", "| top <En65> <En65> <En67 /0 En68>"},
            {u"a/b", u"/", u"", "", "F", "a[/]b next"},
            // The first press of Replace only finds.
            {u"one two one", u"one", u"1", "", "R", "[one] two one top armed"},
            {u"one two one", u"one", u"1", "", "RRRR", "1 two 1| top armed <En65>"},
            // After a replacement the search options change: "whole words" becomes "match case", and "match
            // case" becomes "no highlight".
            {u"one Ones ones one", u"one", u"1", "w", "RR", "1 Ones [one]s one top armed"},
            {u"one One one", u"one", u"1", "c", "RR", "1| One one top armed"},
            {u"one ones", u"one", u"1", "wc", "FRR", "1| ones next armed"},
            // Replace All starts at the caret and ignores both options; it replaces the selection even if
            // nothing is found.
            {u"one two One ones", u"one", u"1", "wc", "A", "1 two 1 1|s top <En67 /3 En68>"},
            {u"one two one", u"one", u"1", "", "vA", "one two 1| top <En67 /1 En68>"},
            {u"one two one", u" one ", u" one one ", "", "A", "one one two one one| top <En67 /2 En68>"},
            {u"one two one", u"", u"1", "", "A", "|one two one top <En67 /0 En68>"},
            {u"one two", u"six", u"6", "", "sA", "one 6| top <En67 /1 En68>"},
        };
    for (const auto& [whole, wanted, with, ticks, presses, expected] : rows) {
        text.setText(base::replaced(whole, u"/", u"\r\n"));
        routines.cmdCancel_Click();
        form.mnuSostituisci.Click();
        find.cboFind.text = base::replaced(wanted, u"/", u"\r\n");
        find.cboReplace.text = base::Text(with);
        find.chkWholeWord.value = std::string_view(ticks).find('w') != std::string_view::npos;
        find.chkMatchCase.value = std::string_view(ticks).find('c') != std::string_view::npos;
        press(presses);
        EXPECT_EQ(seen(), expected) << presses << " for " << base::toUtf8(wanted) << ' ' << ticks;
    }
}

TEST_F(FindReplaceTest, Window_KeepsItsModeUntilCancelled) {
    form.mnuTrova.Click();
    EXPECT_EQ(find.caption.get(), u"&En56...");
    form.mnuSostituisci.Click();
    EXPECT_FALSE(find.cmdReplace.visible || find.cmdReplaceAll.visible || find.cboReplace.visible);
    find.cboFind.text = u"six";
    press("A");
    EXPECT_FALSE(find.visible);
    form.mnuTrova.Click();
    EXPECT_EQ(find.cboFind.text.get(), u"six") << "the window was only hidden";
    find.chkMatchCase.value = true;
    find.Timer1.setInterval(100);
    desktop.loop.advance(100);
    EXPECT_FALSE(find.visible);
    form.mnuSostituisci.Click();
    EXPECT_EQ(find.caption.get(), u"En59...");
    EXPECT_TRUE(find.visible && find.cmdReplace.visible && find.cmdReplaceAll.visible &&
                find.cboReplace.visible);
    EXPECT_FALSE(find.chkMatchCase.value);
}

TEST_F(FindReplaceTest, Selection_BecomesTheSearchText_CutAtItsLineBreak) {
    // Replace is pressed twice: the first replacement appends the removed line break.
    const std::tuple<base::TextView, const char*, const char*> rows[] = {
        {u" one \r\ntwo\r\n one ", "one ", " 1//two/ [one ] top armed"},
        {u" one ", "one", " 1|  top armed"},
        {u"\r\n", "", "[/] top <En65> <En65>"}};
    for (const auto& [selected, sought, replaced] : rows) {
        text.setText(selected);
        select(0, text.textLength());
        routines.cmdCancel_Click();
        form.mnuSostituisci.Click();
        EXPECT_EQ(base::toUtf8(find.cboFind.text.get()), sought);
        find.cboReplace.text = u"1";
        press("RR");
        EXPECT_EQ(seen(), replaced);
    }
}

TEST_F(FindReplaceTest, Histories_HoldEachTextOnce_UntilTheWindowCloses) {
    form.mnuSostituisci.Click();
    for (const base::Text wanted : {u"one", u"One", u"one", u"  ", u""}) {
        find.cboFind.text = wanted;
        find.cboReplace.text = u"1";
        press("FR");
    }
    find.cboFind.text = u"all";
    press("A");
    EXPECT_THAT(find.cboFind.items.get(), ElementsAre(u"one", u"One"));
    EXPECT_THAT(find.cboReplace.items.get(), ElementsAre(u"1"));
    find.cmdCancel.Click();
    form.mnuSostituisci.Click();
    EXPECT_TRUE(find.cboFind.items->empty() && find.cboReplace.items->empty());
    EXPECT_EQ(find.cboReplace.text.get(), u"");
}

TEST_F(FindReplaceTest, DroppedText_IsCutAndRemembered_AndOnlyTheFindBoxRestoresTheLineBreak) {
    text.setText(u"one two one");
    form.mnuSostituisci.Click();
    find.cboReplace.Drop(u" 1 \r\nmore");
    find.cboFind.Drop(u" one \r\nmore");
    find.cboFind.Drop(u"two ");
    EXPECT_THAT(find.cboFind.items.get(), ElementsAre(u"one", u"two"));
    EXPECT_THAT(find.cboReplace.items.get(), ElementsAre(u"1"));
    press("RR");
    EXPECT_EQ(seen(), "one 1/| one top armed");
}

TEST_F(FindReplaceTest, FailedSearch_ShowsTheErrorMessage) {
    text.setText(u"one");
    form.mnuSostituisci.Click();
    find.cboFind.text = u"one";
    text.refusesSearch = true;
    text.commands.clear();
    press("FRA");
    EXPECT_EQ(seen(), "|one top <the search broke off> <the search broke off> <En67 /0 En68>");
    EXPECT_THAT(text.commands, ElementsAre("focus", "focus", "together"));
}
