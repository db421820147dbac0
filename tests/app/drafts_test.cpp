#include "fakes/workbench.h"

class DraftsTest : public fakes::WorkbenchTest {
protected:
    void openDraft(const std::string& bytes) {
        desktop.folder.write("draft", bytes);
        desktop.dialogPort.choices.push_back(desktop.folder.text("draft"));
        for (controls::MenuItem* const item : desktop.form2->menuBar.back()->items) {
            if (item->name == "mnuOpenDraft")
                item->Click();
        }
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
