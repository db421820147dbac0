#include "aids/checked_words.h"
#include "fakes/workbench.h"

namespace {

std::string wordsOf(base::TextView text, std::string_view language) {
    std::string words;
    for (const aids::CheckedWord& word : aids::checkedWords(text, aids::Script::of(language)))
        words += (words.empty() ? "" : "|") + base::toUtf8(word.letters);
    return words;
}

} // namespace

TEST(CheckedWords, AreThoseThatADictionaryCanJudge) {
    const struct {
        const char* text;
        const char* language;
        const char* words;
    } rows[] = {
        {"Don't go, “they’re” rock'n'roll 'quoted'", "en_US", "Don't|go|they’re|rock'n'roll|quoted"},
        {"well-known -dash- e-mail co\u00ADop", "en_US", "well-known|dash|e-mail|co\u00ADop"},
        {"[00:12:34] Ann: (00:01) #00:00:05-1# yes", "en_US", "Ann|yes"},
        {"see https://a.example/x?y=helo or ann@example.org, notes.txt C:\\dir snake_case end.", "en_US",
         "see|or|end."},
        {"3rd mp3 A4 x 1990s etc. e.g. longish. z.B.", "en_US", "etc.|longish"},
        {"na\u0131\u0308ve cafe\u0301 Žižek", "en_US", "na\u0131\u0308ve|cafe\u0301|Žižek"},
        {"good😀 👩‍🚀 ok→next ½cup", "en_US", "good|ok|next|cup"},
        {"hello привет γειά مرحبا 你好 שלום", "en_US", "hello"},
        {"hello привет по-русски ёлка", "ru_RU", "привет|по-русски|ёлка"},
        {"and/or one…two three—four", "en_US", "and|or|one|two|three|four"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(wordsOf(base::fromUtf8(row.text), row.language), row.words) << row.text;
    EXPECT_EQ(wordsOf(base::Text(65, u'a') + u" b" + base::Text(300, u'-') + u"word ok", "en_US"), "ok");
}

// The program with spelling switched on, as the user sees it.
class SpellingTest : public fakes::WorkbenchTest {
protected:
    SpellingTest() {
        spelling.wrong = {{u"helo", {u"hello", u"help"}}, {u"wrold", {}}, {u"Quil", {}}, {u"co-wrold", {}}};
    }

    void switchOn() {
        command("mnuCheckSpelling").Click();
        settle();
    }
    // Paints the text until every word is known, and returns what is marked.
    std::string marked() {
        for (int i = 0; i < 3; ++i) {
            text.MarksIn(0, text.textLength());
            settle();
        }
        std::string words;
        for (const auto& [position, length, mark] : text.MarksIn(0, text.textLength()))
            if (mark == platform::Mark::Misspelled)
                words += base::toUtf8(text.Text().substr(static_cast<std::size_t>(position),
                                                         static_cast<std::size_t>(length))) +
                         ' ';
        return words;
    }
    void settle() {
        desktop.loop.advance(100);
        spelling.answer();
    }
    // Right-clicks that word; returns the captions of the items that stand above the edit menu.
    std::vector<std::string> menuAt(std::int32_t position) {
        std::vector<std::string> captions;
        desktop.form2->PopupMenu = [&](controls::MenuItem& menu) {
            items = menu.items;
            for (const controls::MenuItem* const item : items)
                captions.push_back(base::toUtf8(item->caption.get()));
        };
        if (!text.RightClick(position))
            return {"stated"};
        spelling.answer();
        const auto own = captions.size() - desktop.form2->mnuModifica.items.size();
        EXPECT_EQ(items.back(), desktop.form2->mnuModifica.items.back());
        captions.resize(own);
        return captions;
    }

    fakes::FakeSpelling& spelling = desktop.spellingPort;
    fakes::FakeRichText& text = desktop.text;
    std::vector<controls::MenuItem*> items;
};

TEST_F(SpellingTest, WrongWords_AreMarked_ExceptTheOneThatIsTyped) {
    text.setText(u"say helo to the co-wrold, helo");
    EXPECT_EQ(marked(), "") << "off at first";
    switchOn();
    EXPECT_EQ(spelling.used, "en_US");
    EXPECT_EQ(marked(), "helo co-wrold helo ");
    EXPECT_EQ(std::ranges::count(spelling.asked, u"helo"), 1);
    text.setSelStart(text.textLength());
    text.type(u" wrold");
    EXPECT_EQ(marked(), "helo co-wrold helo ");
    EXPECT_EQ(std::ranges::count(spelling.asked, u"wrold"), 1) << "as a part of the compound only";
    text.type(u" ");
    EXPECT_EQ(marked(), "helo co-wrold helo wrold ");
    text.setSelStart(5);
    EXPECT_EQ(marked(), "helo co-wrold helo wrold ") << "a word where the caret only stands";
    command("mnuCheckSpelling").Click();
    EXPECT_EQ(marked(), "");
}

TEST_F(SpellingTest, Menu_ReplacesOrKeepsTheWord_InOneStep_WithItsMoment) {
    text.setText(u"say helo wrold Quil");
    auto& moments = program->workstation().editor().undoRedo().moments();
    moments.set(4, 4, moments::Moment{.start = 700, .end = 900, .confidence = 30});
    EXPECT_EQ(menuAt(5), std::vector<std::string>{"stated"});
    switchOn();
    marked();
    EXPECT_EQ(menuAt(1), std::vector<std::string>{"stated"});
    EXPECT_EQ(menuAt(5),
              (std::vector<std::string>{"hello", "help", "-", "&Ignore here", "Add to my &words", "-"}));
    items[0]->Click();
    EXPECT_EQ(text.Text(), u"say hello wrold Quil");
    EXPECT_EQ(moments.at(8)->start, 700);
    EXPECT_EQ(moments.at(9), std::nullopt);
    desktop.form2->mnuAnnulla.Click();
    EXPECT_EQ(text.Text(), u"say helo wrold Quil");
    EXPECT_EQ(moments.at(7)->start, 700);
    text.setSelStart(0); // the caret was at the word

    EXPECT_EQ(menuAt(10)[0], "No suggestions");
    items[2]->Click();
    EXPECT_EQ(marked(), "helo Quil ");
    menuAt(16);
    items[3]->Click();
    EXPECT_EQ(desktop.folder.read("Files/Words.txt"), "Quil\r\n");
    EXPECT_EQ(marked(), "helo ");
    desktop.dialogPort.answers = {platform::Answer::No};
    program->workstation().editor().document().newDocument();
    text.setText(u"wrold Quil");
    EXPECT_EQ(marked(), "wrold ") << "ignored in the other document only";
}

TEST_F(SpellingTest, Menu_OpensWithoutAnAnswer_AndNotForAWordThatHasChanged) {
    text.setText(u"say helo");
    switchOn();
    marked();
    int opened = 0;
    desktop.form2->PopupMenu = desktop.form2->PopupAtCaret = [&](controls::MenuItem& menu) {
        ++opened;
        items = menu.items;
    };
    text.setSelStart(8);
    platform::KeyEvent key{platform::menuKey, 0};
    text.KeyDown(key);
    EXPECT_EQ(key.keyCode, 0);
    desktop.loop.advance(500);
    EXPECT_EQ(opened, 1);
    spelling.answer();
    EXPECT_EQ(opened, 1) << "an answer that comes too late";
    text.RightClick(5);
    text.setText(u"other");
    spelling.answer();
    EXPECT_EQ(opened, 1);
    for (controls::MenuItem* const item : items)
        if (item->name == "mnuIgnoreWord")
            item->Click();
    key = {platform::menuKey, 0};
    text.KeyDown(key);
    EXPECT_EQ(key.keyCode, platform::menuKey) << "no wrong word at the caret";
}

TEST_F(SpellingTest, OwnWords_StandGarbage_AndAFolderThatCannotBeWritten) {
    desktop.folder.write("Files/Words.txt", std::string("\xEF\xBB\xBF"
                                                        "wrold\n\xFF\xFE\0junk\r\n\r\n",
                                                        19) +
                                                std::string(5000, 'x') + "\nhelo");
    ASSERT_TRUE(start());
    text.setText(u"helo Wrold wrold Quil");
    switchOn();
    EXPECT_EQ(marked(), "Quil ");
    std::filesystem::remove(desktop.folder.path() / "Files/Words.txt");
    std::filesystem::create_directories(desktop.folder.path() / "Files/Words.txt/x");
    menuAt(18);
    items[3]->Click();
    EXPECT_EQ(marked(), "") << "until the exit";
    const auto& told = program->workstation().notices().all().front();
    EXPECT_EQ(base::TextView(told.sentence), u"The word could not be added to Files/Words.txt: %1");
}

TEST_F(SpellingTest, Languages_AreOffered_TheProgramsFirst_AndWhatIsMissingIsTold) {
    const auto told = [this] {
        const auto& all = program->workstation().notices().all();
        return all.empty() ? std::string()
                           : base::toUtf8(lang::filledIn(all.front().sentence, {all.front().parts[0]}));
    };
    switchOn();
    controls::MenuItem& menu = command("mnuSpellingLanguage");
    EXPECT_EQ(menu.items[0]->caption.get(), u"English (en_US)");
    EXPECT_TRUE(menu.items[0]->checked);
    EXPECT_FALSE(menu.items[2]->visible);
    menu.items[1]->Click();
    settle();
    EXPECT_EQ(spelling.used, "de_DE");
    EXPECT_NE(desktop.folder.read("Files/Options.ini").find("SpellingLanguage=de_DE"), std::string::npos);

    spelling.languages.erase(spelling.languages.begin()); // removed while it is in use
    spelling.used.clear();
    ASSERT_TRUE(start());
    desktop.loop.advance(3000);
    settle();
    EXPECT_NE(told().find("de_DE is not installed"), std::string::npos) << told();
    EXPECT_EQ(spelling.used, "");
    spelling.languages.clear();
    desktop.folder.write("Files/Options.ini", "CheckSpelling=0");
    ASSERT_TRUE(start());
    switchOn();
    EXPECT_NE(told().find("package hunspell-en-us"), std::string::npos) << told();
    EXPECT_FALSE(command("mnuCheckSpelling").checked);
    spelling.failure = u"no module";
    switchOn();
    EXPECT_NE(told().find("no module"), std::string::npos) << told();

    spelling.languages = {{"it_IT", u"italiano (it_IT)"}};
    switchOn();
    EXPECT_EQ(spelling.used, "") << "not that of the program, and not chosen";
    desktop.layLanguage("Italiano.lng");
    desktop.dialogPort.choices.push_back(desktop.folder.text("Files/Lang/Italiano.lng"));
    form().mnuLingua.Click();
    settle();
    EXPECT_EQ(spelling.used, "it_IT");
}
