#include "fakes/workbench.h"

class RecogniserTest : public fakes::WorkbenchTest {
protected:
    RecogniserTest() {
        open("talk.mp3", 2700);
        desktop.loop.advance(2000); // until its length is known
    }

    drafts::RecogniserWindow& window(std::string_view command = "mnuMakeDraft") {
        const auto& items = desktop.form2->menuBar.back()->items;
        (*std::find_if(items.begin(), items.end(), [&](auto* item) {
            return item->name == command;
        }))->Click();
        return *desktop.recogniser;
    }
    // Starts the recogniser and converts the recording.
    drafts::RecogniserWindow& start(std::string_view command = "mnuMakeDraft") {
        drafts::RecogniserWindow& form = window(command);
        form.cmdStart.Click();
        decoder.finish();
        return form;
    }
    // An utterance of PocketSphinx: its words, each 0.4 s long, from this second on.
    void hear(double second, const std::vector<std::string>& words, const char* confidence = "0.9") {
        for (const std::string& word : words) {
            process.print(base::fromUtf8(word + ' ' + std::to_string(second) + ' ' +
                                         std::to_string(second + 0.4) + ' ' + confidence));
            second += 0.4;
        }
        process.print(u"</s> " + base::fromUtf8(std::to_string(second) + ' ' + std::to_string(second)) +
                      u" 1");
    }
    // The start of the word at this position, in ms.
    int startAt(std::int32_t position) {
        const auto moment = program->workstation().editor().undoRedo().moments().at(position);
        return moment ? moment->start : -1;
    }
    bool folderExists() const { return std::filesystem::exists(desktop.folder.path() / "Files/Draft"); }

    fakes::FakeDecoder& decoder = desktop.decoderPort;
    fakes::FakeChildProcess& process = desktop.childProcessPort;
};

TEST_F(RecogniserTest, ADraft_GrowsInANewDocument_WhileTheUserTypes) {
    drafts::RecogniserWindow& form = window();
    EXPECT_EQ(form.lblRecording.caption.get(), u"talk.mp3 (45:00)");
    form.cmdStart.Click();
    EXPECT_EQ(decoder.recording, desktop.folder.text("talk.mp3"));
    decoder.convert(750);
    EXPECT_EQ(form.lblStatus.caption.get(), u"Converting the recording: 12:30 of 45:00");
    decoder.finish();
    EXPECT_EQ(process.command, (std::vector<base::Text>{u"pocketsphinx_continuous", u"-infile", decoder.wav,
                                                        u"-time", u"yes"}));
    hear(1, {"good", "morning"});
    desktop.text.setSelStart(4);
    desktop.text.type(u"!");
    hear(2, {"sir"}, "0.2");
    hear(60, {"later"});
    EXPECT_EQ(desktop.text.Text(), u"good! morning sir\r\nlater");
    EXPECT_EQ(desktop.text.SelStart(), 5);
    EXPECT_EQ(startAt(6), 1400);
    EXPECT_EQ(startAt(14), 2000);
    EXPECT_EQ(startAt(19), 60000);
    EXPECT_EQ(desktop.text.MarksIn(0, 24).size(), 1U) << "the doubtful word";
    EXPECT_EQ(form.lblStatus.caption.get(), u"Recognised: 1:00 of 45:00");
    EXPECT_FALSE(form.cmdStart.enabled);
    process.end();
    EXPECT_EQ(form.lblStatus.caption.get(), u"The draft is complete: 4 words.");
    EXPECT_TRUE(form.cmdStart.enabled);
    EXPECT_FALSE(folderExists());
    EXPECT_EQ(program->workstation().editor().document().TestoModificato, 1);
}

TEST_F(RecogniserTest, AnyProgram_LeavesItsDraftInAFile_WhichRefinesWhatArrived) {
    drafts::RecogniserWindow& form = window();
    form.cboRecogniser.text = form.cboRecogniser.items->back();
    form.cboRecogniser.Click();
    form.txtCommand.text = u"mine --in %i --out '%o'";
    form.txtCommand.Change();
    const std::string json =
        R"({"segments":[{"start":1,"end":3,"text":"One two","speaker":"Ann","words":[)"
        R"({"word":"One","start":1.25,"end":2,"probability":0.3},{"word":"two","start":2.5,"end":3}]}]})";
    for (const bool prints : {true, false}) {
        start();
        if (prints)
            process.print(u"[00:01.000 --> 00:03.000] One two");
        desktop.folder.write("Files/Draft/draft/recording.json", json);
        process.end();
        const base::Text text = prints ? u"One two" : u"Ann: One two";
        EXPECT_EQ(desktop.text.Text(), text);
        EXPECT_EQ(startAt(static_cast<std::int32_t>(text.size()) - 7), 1250);
        EXPECT_EQ(desktop.text.MarksIn(0, 12).size(), 1U);
        desktop.dialogPort.answers.push_back(platform::Answer::No); // about unsaved text
    }
    EXPECT_EQ(process.command[4], desktop.folder.text("Files/Draft/draft"));
    EXPECT_THAT(desktop.folder.read("Files/Options.ini"),
                testing::HasSubstr("DraftProgram=mine --in %i --out '%o'"));
}

TEST_F(RecogniserTest, WhateverFails_IsTold_AndNoFileStays) {
    drafts::RecogniserWindow& form = window();
    const auto status = [&] { return base::toUtf8(form.lblStatus.caption.get()); };
    desktop.text.setText(u"");
    process.missing.insert(u"pocketsphinx_continuous");
    form.cmdStart.Click();
    EXPECT_FALSE(decoder.running);
    EXPECT_TRUE(form.cmdCopy.visible);
    form.cmdCopy.Click();
    EXPECT_EQ(desktop.clipboardPort.GetText(platform::ClipboardFormat::Text),
              u"sudo apt install pocketsphinx pocketsphinx-en-us");
    process.missing.clear();

    form.cmdStart.Click();
    decoder.finish(u"the disk is full");
    EXPECT_THAT(status(), testing::HasSubstr("converted: the disk is full"));
    start();
    process.print(u"ERROR: no acoustic model");
    process.end(1);
    EXPECT_THAT(status(), testing::HasSubstr("ERROR: no acoustic model"));
    EXPECT_TRUE(form.cmdCopy.visible) << "the model is in the other package";
    start();
    process.print(u"\uFFFD\u0001 garbage");
    process.end();
    EXPECT_THAT(status(), testing::HasSubstr("nothing that can be read as a draft: \uFFFD\u0001 garbage"));

    start();
    hear(1, {"kept"});
    form.cmdStop.Click();
    EXPECT_FALSE(process.running);
    EXPECT_EQ(desktop.text.Text(), u"kept");
    form.cmdStart.Click();
    form.cmdStop.Click();
    EXPECT_FALSE(decoder.running);

    desktop.dialogPort.answers.assign(2, platform::Answer::No);
    start();
    hear(1, {"first"});
    form.cmdClose.Click();
    desktop.form2->mnuNuovo.Click(); // the draft would grow in the wrong document
    EXPECT_FALSE(process.running);
    EXPECT_THAT(status(), testing::HasSubstr("another text"));
    EXPECT_EQ(desktop.text.Text(), u"");
    EXPECT_FALSE(folderExists());

    desktop.dialogPort.answers.assign(2, platform::Answer::No);
    start();
    session().mnuChiudi_Click(); // the recording may be closed meanwhile
    hear(1, {"on"});
    EXPECT_EQ(desktop.text.Text(), u"on");
    desktop.form1->mnuEsci.Click();
    EXPECT_FALSE(process.running);
    EXPECT_FALSE(folderExists());
}

TEST_F(RecogniserTest, ATypedText_GetsTimes_WithoutAChangeOfItsLetters) {
    const base::Text typed = u"ANN: Good morning,\r\nsir.\r\nBOB: Hello";
    desktop.text.setText(typed);
    const auto hearAll = [&](double second) {
        hear(second, {"good", "morning", "sir"});
        hear(second + 5, {"hello"});
        process.end();
    };
    drafts::RecogniserWindow& form = start("mnuTimeTranscript");
    hearAll(1);
    EXPECT_EQ(desktop.text.Text(), typed);
    EXPECT_EQ(startAt(0), -1) << "a name is not spoken";
    EXPECT_EQ(startAt(10), 1400);
    EXPECT_EQ(startAt(31), 6000);
    EXPECT_EQ(program->workstation().editor().undoRedo().recordingOfMoments(), u"talk.mp3");
    EXPECT_TRUE(desktop.text.MarksIn(0, 36).empty());

    desktop.dialogPort.answers.assign({platform::Answer::No}); // the times that are there stay
    start("mnuTimeTranscript");
    hearAll(2);
    EXPECT_EQ(startAt(10), 1400);
    desktop.dialogPort.answers.assign({platform::Answer::Yes});
    start("mnuTimeTranscript");
    hearAll(2);
    EXPECT_EQ(startAt(10), 2400);
    desktop.dialogPort.answers.assign({platform::Answer::Yes});
    start("mnuTimeTranscript");
    hear(3, {"something", "else"});
    process.end();
    EXPECT_EQ(startAt(10), 2400);
    EXPECT_THAT(base::toUtf8(form.lblStatus.caption.get()), testing::HasSubstr("does not fit"));
}
