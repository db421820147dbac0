#include "fakes/workbench.h"

struct DraftsTest : fakes::WorkbenchTest {
    void openDraft(const std::string& bytes) {
        desktop.folder.write("draft", bytes);
        desktop.dialogPort.choices.push_back(desktop.folder.text("draft"));
        command("mnuOpenDraft").Click();
    }
};

TEST_F(DraftsTest, OpenDraft_IsANewDocument_AndTellsWhatWasOdd) {
    openDraft("WEBVTT\n\n00:01.000 --> 00:02.000\n<v Ann>Hello\n\n1.0 --> 2.0\nthere");
    const editor::Document& document = program->workstation().editor().document();
    EXPECT_THAT(desktop.text.source(),
                testing::AllOf(testing::HasSubstr("Ann:"), testing::HasSubstr("there")));
    // The words behind "Ann: " and behind the end of the first paragraph.
    const auto& moments = program->workstation().editor().undoRedo().moments();
    EXPECT_EQ(moments.at(5)->start, 1000);
    EXPECT_EQ(moments.at(11), std::nullopt);
    EXPECT_EQ(moments.at(12)->start, 1000);
    EXPECT_EQ(document.FileEditor, u"");
    EXPECT_TRUE(desktop.form2->caption->starts_with(form().Lingua(96)));
    EXPECT_EQ(document.TestoModificato, 1);
    EXPECT_TRUE(desktop.form2->visible);
    EXPECT_FALSE(program->workstation().notices().all().empty());
    EXPECT_TRUE(boxes.empty());
}

TEST_F(DraftsTest, ADamagedFile_ChangesNothing) {
    desktop.text.setText(u"mine");
    openDraft("1\n00:00:0x,000 --> 00:00:02,000\na");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, u"The draft cannot be opened: Line 2: the time cannot be read.");
    EXPECT_EQ(desktop.text.Text(), u"mine");

    program->workstation().editor().document().TestoModificato = 1;
    desktop.dialogPort.answers.push_back(platform::Answer::Cancel); // keeps the unsaved text
    openDraft("1\n00:00:01,000 --> 00:00:02,000\na");
    EXPECT_EQ(desktop.text.Text(), u"mine");
}

TEST_F(DraftsTest, Export_WritesTheFormOfTheName_AndTellsWhatItLacks) {
    openDraft("WEBVTT\n\n00:01.000 --> 00:02.500\n<v Ann>Hello there");
    const auto exported = [&](const std::string& name) {
        desktop.dialogPort.choices.push_back(desktop.folder.text(name));
        command("mnuExport").Click();
        return desktop.folder.read(name);
    };
    const auto told = [&] { return program->workstation().notices().all().front().parts; };
    EXPECT_EQ(exported("a.srt"), "1\r\n00:00:01,000 --> 00:00:02,500\r\nAnn: Hello there\r\n\r\n");
    EXPECT_EQ(told(), std::vector<base::Text>{u"a.srt"});
    EXPECT_EQ(exported("a.txt"), "Ann: Hello there\n");
    EXPECT_EQ(told(), (std::vector<base::Text>{u"a.txt", u"the times of the words"}));
    command("mnuPlainText").items[0]->Click();
    desktop.dialogPort.answers.push_back(platform::Answer::No);
    EXPECT_EQ(exported("a.txt"), "Ann: Hello there\n") << "which the user kept";
    desktop.dialogPort.answers.push_back(platform::Answer::Yes);
    EXPECT_EQ(exported("a.txt"), "[00:00:01] Ann: Hello there\n");
    program->workstation().editor().document().TestoModificato = 0;
    openDraft(R"({"segments":[{"start":1,"end":1.2,"text":"unpronounceable extraordinarily","speaker":"A",)"
              R"("words":[{"word":"unpronounceable","start":1,"end":1.1,"score":0.4}]},)"
              R"({"start":1.3,"end":9,"text":"unbelievable","speaker":"B"}]})");
    exported("c.vtt");
    EXPECT_EQ(told()[1], u"the recogniser's doubts, enough reading time (subtitles: 1)");
    boxes.clear();
    EXPECT_EQ(exported("a.xyz"), "");
    desktop.text.setText(u"typed");
    EXPECT_EQ(exported("b.vtt"), "");
    EXPECT_EQ(boxes.size(), 2U);
}

TEST_F(DraftsTest, DoubtfulWords_AreMarked_Visited_AndSettledByTypingOrByACommand) {
    open("talk.mp3", 60);
    openDraft(
        R"({"words":[{"word":"one","start":1,"end":2,"score":0.4},{"word":"two","start":2,"end":3,"score":0.9},)"
        R"({"word":"three","start":3,"end":4,"score":0.1},{"word":"four","start":4,"end":5,"score":0.2}]})");
    const auto marked = [&] {
        std::vector<std::int32_t> places;
        for (const platform::MarkedPart& part : desktop.text.MarksIn(0, desktop.text.textLength()))
            places.push_back(part.position);
        return places;
    };
    EXPECT_EQ(desktop.text.Text(), u"one two three four");
    EXPECT_EQ(marked(), (std::vector{0, 8, 14}));
    desktop.loop.advance(500);
    EXPECT_THAT(base::toUtf8(command("mnuDoubts").caption.get()), testing::HasSubstr("(3)"));

    desktop.text.setSelStart(3);
    command("mnuNextDoubt").Click();
    EXPECT_EQ(desktop.text.SelText(), u"three");
    EXPECT_EQ(player.currentPosition(), 2.5);
    desktop.text.type(u"t");
    desktop.text.type(u"ree");
    EXPECT_EQ(marked(), (std::vector{0, 13}));
    desktop.text.setSelStart(2);
    desktop.text.type(u"x");
    EXPECT_EQ(marked(), std::vector{14});
    desktop.form2->mnuAnnulla.Click();
    EXPECT_EQ(marked(), (std::vector{0, 13})) << "the doubt comes back with the word";
    desktop.form2->mnuRipeti.Click();
    EXPECT_EQ(marked(), std::vector{14});
    desktop.form2->mnuAnnulla.Click();
    desktop.text.setSelStart(8);
    command("mnuNextDoubt").Click();
    EXPECT_EQ(desktop.text.SelText(), u"four");
    command("mnuKeepWord").Click();
    command("mnuDoubtBefore").Click();
    EXPECT_EQ(desktop.text.SelText(), u"one");
    EXPECT_EQ(marked(), std::vector{0});
}
