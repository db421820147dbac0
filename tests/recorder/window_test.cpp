#include "fakes/full_disk.h"
#include "fakes/workbench.h"
#include "recorder/recorder_window.h"
#include "recorder/wav_header.h"
#include "recorder/wav_repair.h"

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

struct RecorderTest : fakes::WorkbenchTest {
    recorder::FrmAudioRec& open() {
        form().mnuRegistra.Click();
        return *desktop.recorder;
    }
    // Opens the recorder and starts recording to this file in the program folder.
    recorder::FrmAudioRec& record(const std::string& name) {
        recorder::FrmAudioRec& window = open();
        desktop.dialogPort.choices = {desktop.folder.text(name)};
        window.btnStart.Click();
        return window;
    }
    // True if the file has its header and this many full buffers.
    bool isWhole(const std::string& name, std::size_t buffers) {
        const std::string bytes = desktop.folder.read(name);
        return bytes.starts_with("RIFF") && bytes.size() == 44 + buffers * 8192 + 1;
    }
    std::string state() {
        const recorder::FrmAudioRec& window = *desktop.recorder;
        return base::toUtf8(window.btnStart.tag.get() + u'|' + window.btnStart.caption.get() + u'|' +
                            window.lblState.caption.get()) +
               (window.Image2.visible ? " lamp" : "") + (window.btnStop.enabled ? " stop" : "") +
               (window.cmbBits.enabled ? " options" : "");
    }
};

TEST_F(RecorderTest, RecordPauseResumeStop_ThenCloseWhileRecordingInAnotherFormat) {
    recorder::FrmAudioRec& window = open();
    form().top = 500;
    const double width = window.width;
    // On the right of the player, on the left, or below it where the screen is too narrow.
    for (const auto& [start, screen, left, below] :
         {std::tuple{1000., 50000., 1000 + form().width + 30, false},
          {width + 40, width + form().width + 60, 10., false},
          {width, width + form().width + 20, std::min(width, form().width + 20), true}}) {
        window.visible = false;
        form().left = start;
        form().screen.width = screen;
        form().mnuRegistra.Click();
        EXPECT_EQ(window.left, left) << screen;
        EXPECT_EQ(window.top, 500 + (below ? form().height + 30 : 0)) << screen;
    }
    EXPECT_EQ(window.lblState.foreColor, controls::rgb(0, 0, 255));
    EXPECT_EQ(window.Image2.picture.get(), desktop.folder.text("Files/lamp.png"));
    record("a.wav");
    EXPECT_EQ(state(), "Start|&En8|&En113 lamp stop");
    EXPECT_EQ(desktop.device.format.samplesPerSec, 44100);
    for (int i = 0; i < 22; ++i)
        desktop.device.fill();
    desktop.loop.advance(10);
    EXPECT_EQ(window.lblTime.caption.get() + u", " + window.lblBytesWritten.caption.get(),
              u"00:00:01, 180269 &En110");
    for (const char* word : {"", "&En113"}) {
        desktop.loop.advance(500);
        EXPECT_EQ(state(), std::string("Start|&En8|") + word + " lamp stop") << "the caption blinks";
    }
    // The bytes count up to 255: 16-bit samples of at least 126 * 256 + 125.
    EXPECT_NEAR(window.picPeakLeft.width, 32500. / 32767 * 4800 - 110, 40);
    window.btnStart.Click();
    desktop.loop.advance(2000);
    EXPECT_EQ(state(), "Pause|&&En112|&En114 stop") << "the caption of a pause does not blink";
    window.btnStart.Click();
    EXPECT_EQ(state(), "Pause|&En8|&En113 lamp stop");
    desktop.device.fill();
    window.btnStop.Click();
    EXPECT_EQ(state(), "|&&En111| options");
    EXPECT_TRUE(isWhole("a.wav", 23));

    window.cmbChannels.text = u"1 - mono";
    window.cmbFrequency.text = u"8000";
    window.cmbBits.text = u"8";
    record("Rec 01.wav");
    EXPECT_EQ(desktop.device.format.avgBytesPerSec, 8000);
    window.Unload();
    EXPECT_EQ(open().txtFile.text.get(), desktop.folder.text("Rec 02.wav"));
    EXPECT_EQ(recorder::FormatTime(3725, false) + recorder::FormatTime(3600000, true), u"01:02:0501:00:00");
}

TEST_F(RecorderTest, FullDiskOrLostDevice_IsReported_AndTheMetersRest) {
    const auto told = [&] { return base::toUtf8(program->workstation().notices().all().front().sentence); };
    const auto levelAfter = [&](auto event) {
        event();
        desktop.loop.advance(100);
        return desktop.recorder->picPeakLeft.width.get();
    };
    open();
    record("a.wav");
    const auto fillThree = [&] {
        for (int i = 0; i < 3; ++i)
            desktop.device.fill();
    };
    EXPECT_GT(levelAfter(fillThree), 0);
    {
        const fakes::FullDisk disk(1000);
        EXPECT_EQ(levelAfter(fillThree), 0);
        EXPECT_EQ(told(), "The recording cannot be written: %1");
    }
    EXPECT_GT(levelAfter(fillThree), 0);
    EXPECT_THAT(told(), HasSubstr("written again"));
    EXPECT_EQ(levelAfter([&] { desktop.device.DeviceLost(u"unplugged"); }), 0);
    EXPECT_EQ(told(), "The recording device is gone: %1");
    EXPECT_GT(levelAfter([&] { desktop.device.DeviceBack(); }), 0);
}

TEST_F(RecorderTest, Close_InEveryState_EndsCleanly_AndTheNextRecordingIsComplete) {
    // Clicks before the window is closed: s is Start with a file chosen, x is Start with the dialog
    // cancelled, t is Stop.
    for (const std::string_view clicks : {"x", "xs", "xss", "s", "ss", "sss", "sst", ""}) {
        recorder::FrmAudioRec& window = open();
        for (const char click : clicks) {
            if (click == 's')
                desktop.dialogPort.choices = {desktop.folder.text("first.wav")};
            click == 't' ? window.btnStop.Click() : window.btnStart.Click();
            desktop.loop.advance(100);
        }
        desktop.dialogPort.choices.clear();
        window.Unload();
        desktop.loop.advance(1000);
        record("next.wav");
        desktop.device.fill();
        clicks.empty() ? form().mnuEsci.Click() : static_cast<void>(window.Unload());
        EXPECT_TRUE(isWhole("next.wav", 1)) << clicks;
        std::filesystem::remove(desktop.folder.path() / "next.wav");
        std::filesystem::remove(desktop.folder.path() / "first.wav");
    }
}

TEST_F(RecorderTest, OverwriteQuestion_NoKeepsTheFile_YesReplacesIt_EvenWhilePlaying) {
    recorder::FrmAudioRec& window = open();
    Workbench::open("talk.wav", 60);
    desktop.loop.advance(1000);
    form().cmdRec.Click();
    EXPECT_EQ(player.playState(), platform::PlayState::Stopped);
    form().cmdPlay.Click();
    desktop.loop.advance(5000);
    form().cmdPlay.Click();
    form().cmdRec.Click();
    EXPECT_EQ(player.playState(), platform::PlayState::Paused) << "a paused recording is not stopped";
    desktop.dialogPort.answers = {platform::Answer::No};
    record("talk.wav");
    EXPECT_EQ(desktop.dialogPort.requests.back().initialFolder, base::currentFolder())
        << "folder of the last file";
    EXPECT_TRUE(desktop.dialogPort.requests.back().extensionAlways);
    EXPECT_EQ(desktop.folder.read("talk.wav"), "sound");
    EXPECT_EQ(boxes.back().text, u"En53\r\rEn54");
    EXPECT_EQ(state(), "Start|&En8| options") << "nothing was started";
    window.btnStart.Click();
    EXPECT_EQ(state(), "Pause|&En8|&En113 lamp options") << "behaves as a resume";
    window.Unload();
    desktop.dialogPort.answers = {platform::Answer::Yes};
    record("talk.wav");
    // The user may try to play the file at any time.
    form().cmdPlay.Click();
    const std::size_t before = player.commands.size();
    opener().ApriMedia(desktop.folder.text("talk.wav"));
    EXPECT_EQ(player.commands.size() - before, 2U) << "paused, and nothing is loaded";
    desktop.device.fill();
    form().Drop({desktop.folder.text("talk.wav")});
    program->workstation().recorder().cutOff().finish();
    EXPECT_EQ(player.URL(), desktop.folder.text("talk.wav")) << "a running recording is not repaired";
    window.btnStop.Click();
    EXPECT_TRUE(isWhole("talk.wav", 1));
    opener().ApriMedia(desktop.folder.text("talk.wav"));
    EXPECT_EQ(player.URL(), desktop.folder.text("talk.wav")) << "it plays once finished";
}

struct CutOffTest : RecorderTest {
    // Creates what a crash leaves behind: an empty header, then `bytes` of sound.
    void leave(const std::string& name, std::size_t bytes, const std::string& note = {}) {
        desktop.folder.write(name, std::string(44, '\0') + std::string(bytes, 'a'));
        if (!note.empty())
            notes += note + desktop.folder.path().string() + "/" + name + "\r\n";
        desktop.folder.write("Files/Recordings.ini", notes);
    }
    void startAndRepair() {
        EXPECT_TRUE(start());
        desktop.loop.advance(2000);
        finish();
    }
    // Waits for the copies; on a busy machine this may take long.
    void finish() { program->workstation().recorder().cutOff().finish(); }
    // All that was told, the newest first, in English.
    std::string told() {
        std::string all;
        for (const auto& notice : program->workstation().notices().all()) {
            const std::vector<base::TextView> parts(notice.parts.begin(), notice.parts.end());
            all += base::toUtf8(lang::filledIn(notice.sentence, parts)) + "\n";
        }
        return all;
    }
    std::string notes;
};

TEST_F(CutOffTest, Start_CreatesARepairedCopy_AndReportsItOnce) {
    leave("talk.wav", 50001, "1,8,11025,");
    leave("Interview 12.3", 5000, "1,16,48000,");
    leave("Rec 07.WAV", 1000);
    leave("not a recording", 1000);
    desktop.folder.write("Interview 12.3 repaired.wav",
                         recorder::wavHeader(recorder::pcmFormat(1, 16, 48000), 6044) +
                             std::string(6000, 'b'));
    desktop.folder.write("Rec 07 repaired.WAV", "another file of that name");
    desktop.folder.write("talk repaired.wav.new", "another one");
    leave("empty.wav", 0);
    leave("music.wav", 0, "1,8,8000,");
    desktop.folder.write("music.wav", "RIFF and so on, far more than forty-four bytes of it");
    startAndRepair();
    EXPECT_THAT(told(), HasSubstr("talk repaired.wav (11025 Hz, 8 bit, mono)"));
    EXPECT_THAT(told(), HasSubstr("Interview 12.3 repaired 2.wav (48000 Hz, 16 bit, mono)"))
        << "the existing file is the copy of a longer recording";
    EXPECT_THAT(told(), Not(HasSubstr("empty")));
    EXPECT_THAT(told(), Not(HasSubstr("not a")));
    EXPECT_THAT(told(), HasSubstr("Rec 07 repaired 2.WAV (44100 Hz, 16 bit, stereo, the usual format"));
    const std::string copy = desktop.folder.read("talk repaired.wav");
    EXPECT_EQ(copy, recorder::wavHeader(recorder::pcmFormat(1, 8, 11025), 50045) + std::string(50001, 'a'));
    EXPECT_EQ(desktop.folder.read("talk.wav"), std::string(44, '\0') + std::string(50001, 'a'));
    EXPECT_EQ(desktop.folder.read("talk repaired.wav.new"), "another one");
    EXPECT_EQ(desktop.folder.read("empty.wav").size(), 44U);
    EXPECT_THAT(desktop.folder.read("Files/Recordings.ini"),
                AllOf(HasSubstr("talk.wav"), Not(HasSubstr("music.wav"))));
    startAndRepair();
    EXPECT_EQ(told(), "") << "once";
    EXPECT_FALSE(base::fileExists(desktop.folder.text("talk repaired 2.wav")));
    std::filesystem::rename(desktop.folder.path() / "talk repaired.wav", desktop.folder.path() / "my.wav");
    startAndRepair();
    EXPECT_EQ(desktop.folder.read("talk repaired.wav"), copy) << "its format is still known";
    leave("talk.wav", 50001);
    startAndRepair();
    EXPECT_TRUE(base::fileExists(desktop.folder.text("talk repaired 2.wav")))
        << "another recording, just as long";
}

TEST_F(CutOffTest, RecordingOnAMissingDisk_KeepsItsFormat) {
    leave("away.wav", 3000, "1,8,8000,");
    const auto elsewhere = desktop.folder.path() / "elsewhere";
    std::filesystem::rename(desktop.folder.path() / "away.wav", elsewhere);
    startAndRepair();
    std::filesystem::rename(elsewhere, desktop.folder.path() / "away.wav");
    startAndRepair();
    EXPECT_THAT(told(), HasSubstr("(8000 Hz, 8 bit, mono)"));
}

TEST_F(CutOffTest, CancelledCopy_LeavesNoFile) {
    leave("talk.wav", 3000);
    EXPECT_THROW(recorder::repairCutOff(desktop.folder.text("talk.wav"), {}, [](double) { return false; }),
                 base::Failure);
    EXPECT_FALSE(base::fileExists(desktop.folder.text("talk repaired.wav")));
    EXPECT_FALSE(base::fileExists(desktop.folder.text("talk repaired.wav.new")));
}

TEST_F(CutOffTest, OpenedDamagedFile_PlaysItsRepairedCopy_AndTheScanContinues) {
    leave("found.wav", 3000);
    leave("dropped.wav", 3000);
    leave("opened", 3000, "2,16,48000,");
    for (const char* name : {"opened repaired.wav", "dropped repaired.wav"})
        player.lengths[desktop.folder.text(name)] = 10;
    start();
    desktop.loop.advance(2000);
    opener().ApriMedia(desktop.folder.text("opened"));
    finish();
    EXPECT_EQ(form().Label4.tag.get(), desktop.folder.text("opened repaired.wav"));
    EXPECT_TRUE(form().isPlaying());
    form().Drop({desktop.folder.text("dropped.wav")});
    finish();
    EXPECT_EQ(player.URL(), desktop.folder.text("dropped repaired.wav"));
    desktop.loop.advance(2000);
    finish();
    for (const char* copy : {"opened repaired.wav", "dropped repaired.wav", "found repaired.wav"})
        EXPECT_THAT(told(), HasSubstr(copy));
    const std::string before = told();
    opener().ApriMedia(desktop.folder.text("opened"));
    finish();
    EXPECT_EQ(form().Label4.tag.get(), desktop.folder.text("opened repaired.wav"));
    EXPECT_EQ(told(), before) << "it was reported already";
    EXPECT_THAT(boxes, IsEmpty());
}
