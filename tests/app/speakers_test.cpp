#include "fakes/workbench.h"

class SpeakersTest : public fakes::WorkbenchTest {
protected:
    void press(int key) { command("mnuParagraph" + std::to_string(key)).Click(); }
    std::string text() const { return base::toUtf8(base::replaced(desktop.text.Text(), u"\r\n", u"|")); }
    void undo() { desktop.form2->mnuAnnulla.Click(); }
};

TEST_F(SpeakersTest, Keys_GiveOrBeginAParagraph_InOneStep_AndTheOthersKeepTheirs) {
    const struct {
        const char* before;
        std::int32_t caret;
        int key;
        const char* after;
    } rows[] = {
        {"", 0, 1, "Speaker 1: "},
        {"hello", 2, 1, "Speaker 1: hello"},
        {"hello", 5, 1, "hello|Speaker 1: "},
        {"Ann: a|Bob: b", 2, 2, "Bob: a|Bob: b"},
        {"Ann: a|Bob: b", 6, 2, "Ann: a|Bob: |Bob: b"},
        {"Ann: a|Bob: b", 7, 7, "Ann: a|Speaker 3: b"},
        {"Ann: a|more|Bob: b", 4, 2, "Bob: a|Ann: more|Bob: b"},
        {"Ann: a|more|Bob: b", 6, 2, "Ann: a|Bob: |Ann: more|Bob: b"},
        {"Ann: a|[00:00:05] more", 0, 2, "Speaker 2: a|[00:00:05] Ann: more"},
        {"[00:00:05] Ann: a|Bob: b", 3, 2, "[00:00:05] Bob: a|Bob: b"},
        {"Ann: a|Speaker 2: b|", 21, 3, "Ann: a|Speaker 2: b|Speaker 3: "},
        {"Ann: a", 5, 1, "Ann: a"},
    };
    for (const auto& row : rows) {
        desktop.text.setText(base::replaced(base::fromUtf8(row.before), u"|", u"\r\n"));
        const auto before = text();
        // An end of a paragraph counts twice.
        const auto ends = std::ranges::count(before.substr(0, static_cast<std::size_t>(row.caret)), '|');
        desktop.text.setSelStart(row.caret + static_cast<std::int32_t>(ends));
        press(row.key);
        EXPECT_EQ(text(), row.after) << row.before << " " << row.caret;
        if (text() != before)
            undo();
        EXPECT_EQ(text(), before);
    }
}

TEST_F(SpeakersTest, Window_ListsAndRenamesSpeakers_InOneStep_WithTheMomentsOfTheirWords) {
    desktop.text.setSource(R"({\rtf1 Ann: one two\par Bob: three\par more\par Ann: four})");
    auto& moments = program->workstation().editor().undoRedo().moments();
    moments.set(5, 3, moments::Moment{.start = 1000, .end = 1500, .confidence = 20});
    desktop.text.setSelStart(24);
    command("mnuSpeakers").Click();
    auto& form = *desktop.speakers;
    EXPECT_EQ(form.List1.items.get(), (std::vector<base::Text>{u"Alt+1\tAnn\t2", u"Alt+2\tBob\t2"}));
    EXPECT_EQ(form.txtName.text.get(), u"Bob") << "who speaks at the caret";
    form.List1.listIndex = 0;
    form.txtName.text = u" Anna: Lee ";
    form.cmdRename.Click();
    EXPECT_EQ(text(), "Anna Lee: one two|Bob: three|more|Anna Lee: four");
    EXPECT_EQ(form.List1.items.get()[0], u"Alt+1\tAnna Lee\t2");
    EXPECT_EQ(moments.at(0), std::nullopt);
    EXPECT_EQ(moments.at(10)->confidence, 20);
    EXPECT_EQ(command("mnuParagraph1").caption.get(), u"Paragraph for speaker &1: Anna Lee");
    undo();
    EXPECT_EQ(text(), "Ann: one two|Bob: three|more|Ann: four");
    EXPECT_EQ(moments.at(5)->start, 1000);
    desktop.loop.advance(500);
    EXPECT_EQ(form.List1.items.get()[0], u"Alt+1\tAnn\t2") << "the window follows the text";
}
