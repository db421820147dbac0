#include "aids/abbreviations.h"
#include "aids/typed_signs.h"
#include "fakes/watched_text.h"
#include "fakes/workbench.h"

#include <filesystem>

using namespace std::string_literals;

class TypingAidsTest : public fakes::WorkbenchTest {
protected:
    // The text with "|" at the caret; "/" stands for a paragraph end.
    std::string shown() const { return fakes::shown(desktop.text); }
    void type(const std::string& letters) {
        for (const char16_t unit : base::fromUtf8(letters))
            desktop.text.type(unit == u'\n' ? base::Text(u"\r\n") : base::Text(1, unit));
    }
    void undo() { desktop.form2->mnuAnnulla.Click(); }
    void redo() { desktop.form2->mnuRipeti.Click(); }
    bool press(int keyCode) {
        platform::KeyEvent key{keyCode, 0};
        desktop.text.KeyDown(key);
        return key.keyCode == 0;
    }
    void abbreviate(const std::string& bytes) {
        desktop.folder.write("Files/Abbreviations.txt", bytes);
        desktop.loop.advance(2500);
    }
    controls::MenuItem& inMenu(std::string_view menu, std::size_t place) {
        return *command(menu).items[place];
    }
};

TEST_F(TypingAidsTest, Abbreviations_AreExpandedAsTyped_InOneStepOfUndo) {
    abbreviate(
        "bc = because\nmfg = with best regards\nUSA = United States\ns = {speaker}: {x}\n"
        "t = at {time} \ndear = Dear {caret},{caret} me\nself = self and self\nfran\xC3\xA7 = fran\xC3\xA7"
        "ais\n");
    open("talk.mp3", 600);
    player.setCurrentPosition(75);
    const struct {
        const char* before;
        const char* typed;
        const char* after;
        const char* undone;
    } rows[] = {
        {"", "bc ", "because |", "bc |"},
        {"so ", "Bc.", "so Because.|", "so Bc.|"},
        {"", "(BC,", "(BECAUSE,|", "(BC,|"},
        {"", "bc\n", "because/|", "bc/|"},
        {"", "bc\t", "because\t|", "bc\t|"},
        {"a", "bc ", "abc |", nullptr},
        {"x-", "bc ", "x-bc |", nullptr},
        {"don'", "bc ", "don'bc |", nullptr},
        {"", "bC ", "bC |", nullptr},
        {"", "usa ", "usa |", nullptr},
        {"", "USA ", "United States |", "USA |"},
        {"", "MFG!", "WITH BEST REGARDS!|", "MFG!|"},
        {"", "self ", "self and self |", "self |"},
        {"", "dear ", "Dear |, me ", "dear |"},
        {"", "t ", "at [00:01:15] |", "t |"},
        {"Ann: hello/", "s ", "Ann: hello/Ann: {x} |", "Ann: hello/s |"},
        {"", "FRAN\xC3\x87 ",
         "FRAN\xC3\x87"
         "AIS |",
         "FRAN\xC3\x87 |"},
    };
    for (const auto& row : rows) {
        desktop.text.setText(base::replaced(base::fromUtf8(row.before), u"/", u"\r\n"));
        desktop.text.setSelStart(desktop.text.textLength());
        type(row.typed);
        EXPECT_EQ(shown(), row.after) << row.typed;
        if (!row.undone)
            continue;
        const base::Text expanded = desktop.text.Text();
        undo();
        EXPECT_EQ(shown(), row.undone);
        redo();
        EXPECT_EQ(desktop.text.Text(), expanded) << row.typed;
    }
}

TEST_F(TypingAidsTest, Expansion_KeepsTheMomentOfTheShortForm_AndOnlyTypedLettersAreExpanded) {
    abbreviate("bc = because of it\n");
    desktop.text.type(u"bc");
    auto& moments = program->workstation().editor().undoRedo().moments();
    moments.set(0, 2, moments::Moment{.start = 4000, .end = 4500, .confidence = 30});
    desktop.text.type(u" ");
    EXPECT_EQ(moments.at(12), (moments::Moment{.start = 4000, .end = 4500}));
    undo();
    EXPECT_EQ(moments.at(0)->start, 4000);
    desktop.text.setText(u"");
    desktop.text.setSelRTF(u"bc ");
    EXPECT_EQ(shown(), "bc |") << "pasted";
    desktop.text.setSelStart(1);
    desktop.text.setSelText(u"bc ");
    EXPECT_EQ(shown(), "bbc |c ") << "by the program";
    inMenu("mnuTyping", 0).Click();
    desktop.text.setText(u"");
    type("bc ");
    EXPECT_EQ(shown(), "bc |") << "turned off";
    EXPECT_NE(desktop.folder.read("Files/Options.ini").find("ExpandAbbreviations=0"), std::string::npos);
}

TEST_F(TypingAidsTest, File_IsReadAgain_SkipsDamagedLines_AndIsChangedLineByLine) {
    const std::string garbage =
        "\xEF\xBB\xBF# mine\r\nbc = because\r\nno equals\r\n\xFF\xFE = x\r\nb c = blank\r\n"
        "bc = twice\r\n\r\nlong = " +
        std::string(1'000'000, 'x') + "\r\nlast = one";
    abbreviate(garbage);
    command("mnuAbbreviations").Click();
    auto& form = *desktop.abbreviations;
    EXPECT_EQ(form.List1.items.get(), (std::vector<base::Text>{u"bc\tbecause", u"last\tone"}));
    EXPECT_EQ(form.lblFault.caption.get(), u"Lines of the file that cannot be used: 3, 4, 5, 6, 8");
    form.txtShort.text = u"at";
    form.txtText.text = u"attention";
    form.txtText.Change();
    form.cmdAdd.Click();
    form.txtSearch.text = u"BECA";
    form.txtSearch.Change();
    ASSERT_EQ(form.List1.items->size(), 1U);
    form.List1.listIndex = 0;
    form.txtText.text = u"because of";
    form.txtText.Change();
    form.cmdChange.Click();
    std::string expected = garbage + "\nat = attention\r\n";
    expected.replace(expected.find("bc = because"), 12, "bc = because of");
    EXPECT_EQ(desktop.folder.read("Files/Abbreviations.txt"), expected);
    form.cmdDelete.Click();
    expected.erase(expected.find("bc = because of"), 17);
    EXPECT_EQ(desktop.folder.read("Files/Abbreviations.txt"), expected);
    form.txtSearch.text = u"";
    desktop.folder.write("Files/Abbreviations.txt", "new = old\n");
    desktop.loop.advance(2500);
    EXPECT_EQ(form.List1.items.get(), (std::vector<base::Text>{u"new\told"}));
    std::filesystem::remove(desktop.folder.path() / "Files/Abbreviations.txt");
    std::filesystem::create_directory(desktop.folder.path() / "Files/Abbreviations.txt");
    desktop.loop.advance(2500);
    EXPECT_TRUE(form.lblFault.caption->starts_with(u"The abbreviations could not be read: "));
    EXPECT_EQ(form.List1.items->size(), 1U) << "those from before stay";
    std::filesystem::remove(desktop.folder.path() / "Files/Abbreviations.txt");
    desktop.loop.advance(2500);
    EXPECT_TRUE(form.List1.items->empty());
    EXPECT_EQ(form.lblFault.caption.get(), u"");
}

TEST_F(TypingAidsTest, LongWords_AreOfferedAndTakenByTab_WhileTheTextChanges) {
    inMenu("mnuTyping", 1).Click();
    desktop.text.setText(u"transcription transcription transcript Konferenzraum konferenz\r\n");
    desktop.loop.advance(100);
    desktop.text.setSelStart(desktop.text.textLength());
    const auto offered = [&] { return base::toUtf8(desktop.text.offered); };
    type("tr");
    EXPECT_EQ(offered(), "");
    type("a");
    EXPECT_EQ(offered(), "nscription") << "the most frequent one";
    EXPECT_TRUE(press(9));
    EXPECT_EQ(offered(), "");
    EXPECT_TRUE(shown().ends_with("/transcription|"));
    EXPECT_FALSE(press(9)) << "nothing is offered any more";
    undo();
    EXPECT_TRUE(shown().ends_with("/tra|"));
    type(" Tra");
    EXPECT_EQ(offered(), "nscription") << "at the beginning of a sentence";
    type("x Kon");
    EXPECT_EQ(offered(), "ferenzraum");
    EXPECT_TRUE(press(27));
    EXPECT_EQ(offered(), "");
    type("f");
    desktop.text.setSelStart(0);
    EXPECT_FALSE(press(9)) << "the caret has moved";
    type("tran");
    EXPECT_EQ(offered(), "") << "letters stand behind the caret";
    desktop.text.setText(u"");
    type("wonderfully won");
    EXPECT_EQ(offered(), "derfully") << "a word that was typed";
    desktop.text.setSelStart(2);
    desktop.text.setSelLength(9);
    desktop.text.type(u"");
    EXPECT_EQ(shown(), "wo| won");
    desktop.text.setSelStart(6);
    type("d");
    EXPECT_EQ(offered(), "") << "the word is gone";
}

TEST(TypedSigns, StraightSigns_BecomeThoseOfTheLanguage) {
    const aids::Signs english = aids::Signs::of(u"damaged row");
    const aids::Signs french = aids::Signs::of(u"\u00AB\u202F \u202F\u00BB \u2018 \u2019 \u2014");
    const aids::Signs polish = aids::Signs::of(u"\u201E \u201D \u201A \u2019 \u2013");
    const struct {
        const aids::Signs& signs;
        const char16_t* before;
        char16_t typed;
        const char16_t* after;
    } rows[] = {
        {english, u"", u'"', u"\u201C"},
        {english, u"he said, ", u'"', u"he said, \u201C"},
        {english, u"\u201Cyes", u'"', u"\u201Cyes\u201D"},
        {english, u"\u201Cyes.", u'"', u"\u201Cyes.\u201D"},
        {english, u"(", u'"', u"(\u201C"},
        {english, u"\u201C", u'\'', u"\u201C\u2018"},
        {english, u"don", u'\'', u"don\u2019"},
        {english, u"rock ", u'\'', u"rock \u2018"},
        {english, u"1990", u'\'', u"1990\u2019"},
        {polish, u"", u'"', u"\u201E"},
        {polish, u"\u201Etak", u'"', u"\u201Etak\u201D"},
        {french, u"", u'"', u"\u00AB\u202F"},
        {french, u"\u00AB\u202Foui", u'"', u"\u00AB\u202Foui\u202F\u00BB"},
        {french, u"\u00AB\u202Foui ", u'"', u"\u00AB\u202Foui\u202F\u00BB"},
        {french, u"\u00AB\u202Foui\u202F\u00BB puis ", u'"',
         u"\u00AB\u202Foui\u202F\u00BB puis \u00AB\u202F"},
        {french, u"aujourd", u'\'', u"aujourd\u2019"},
    };
    for (const auto& row : rows) {
        const aids::TypedSign sign = aids::quotationFor(row.typed, row.before, row.signs);
        base::Text text = row.before + base::Text(1, row.typed);
        text.erase(text.size() - static_cast<std::size_t>(sign.removed));
        EXPECT_EQ(base::toUtf8(text + sign.inserted), base::toUtf8(row.after));
    }
}

TEST_F(TypingAidsTest, SignsAndDashes_AreOffAtFirst_AndUndoneAlone) {
    type("\"a--b\"");
    EXPECT_EQ(shown(), "\"a--b\"|");
    inMenu("mnuTyping", 2).Click();
    inMenu("mnuTyping", 3).Click();
    desktop.text.setText(u"");
    type("\"a--b\"");
    EXPECT_EQ(shown(), "\u201Ca\u2014b\u201D|"s);
    undo();
    EXPECT_EQ(shown(), "\u201Ca\u2014b\"|"s);
    desktop.text.setText(u"");
    type("--");
    undo();
    EXPECT_EQ(shown(), "--|");
    type("-");
    EXPECT_EQ(shown(), "---|") << "it is a line, not a dash";
}

TEST_F(TypingAidsTest, Zoom_StepsWithinItsLimits_AndIsRemembered) {
    const auto zoom = [&] { return desktop.form2->zoom.get(); };
    inMenu("mnuZoom", 0).Click();
    EXPECT_EQ(zoom(), 110);
    desktop.text.Zoom(100);
    EXPECT_EQ(zoom(), 400);
    desktop.text.Zoom(-100);
    EXPECT_EQ(zoom(), 50);
    inMenu("mnuZoom", 2).Click();
    inMenu("mnuZoom", 1).Click();
    EXPECT_EQ(zoom(), 90);
    desktop.loop.advance(500);
    ASSERT_TRUE(start());
    EXPECT_EQ(zoom(), 90);
}
