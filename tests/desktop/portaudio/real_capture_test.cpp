#include "capture_fixture.h"
#include "contracts/wave_input_contract.h"
#include "portaudio_input.h"
#include "recorder/cut_off_recordings.h"
#include "recorder/wav_repair.h"

#include <csignal>
#include <gmock/gmock.h>

using capture::Format;
using RealCapture = capture::CaptureFixture;

namespace {

struct PortAudioBench : contracts::WaveInputBench {
    PortAudioBench() { capture::useAlsa(folder, capture::fileDevice("/dev/zero")); }
    platform::WaveInput& device() override { return input; }
    void takeDeviceAway() override { capture::useAlsa(folder, ""); }
    void listen() override { fakes::runLoop(1); }

    fakes::TemporaryFolder folder;
    desktop::PortAudioInput input;
};

} // namespace

namespace contracts {

INSTANTIATE_TEST_SUITE_P(PortAudio, WaveInputContract, testing::Values(make<WaveInputBench, PortAudioBench>));

} // namespace contracts

TEST_F(RealCapture, SoundServer_EveryFormat_RecordsWhatWasPlayed) {
    const auto formats = capture::allFormats();
    startServer(formats);
    std::vector<std::unique_ptr<QProcess>> recordings;
    std::vector<std::unique_ptr<QProcess>> players;
    for (const Format& format : formats) {
        folder.write(format.name(), capture::noise(format.bytesPerSecond() * 8));
        players.push_back(play(format, format.name()));
        recordings.push_back(record(format, format.bytesPerSecond() * 3 / 8192 + 1, format.name() + ".wav"));
    }
    for (std::size_t i = 0; i < formats.size(); ++i) {
        const Format& format = formats[i];
        const std::string told = capture::outputOf(*recordings[i]);
        EXPECT_THAT(told, testing::HasSubstr(" 0 losses")) << format.name();
        EXPECT_GT(alike(folder.read(format.name() + ".wav"), folder.read(format.name()), format),
                  format.rate * format.channels)
            << format.name();
    }
    for (const auto& player : players)
        end(player);
}

TEST_F(RealCapture, HangingServer_IsReported_WithoutBlockingTheLoop) {
    const Format format{44100, 16, 2};
    startServer({format});
    ::kill(static_cast<pid_t>(server->processId()), SIGSTOP);
    const auto recording = record(format, 90, "a.wav");
    EXPECT_TRUE(recording->waitForReadyRead(3000)) << "start returns without waiting for the device";
    EXPECT_EQ(capture::outputOf(*recording), "started\n0 buffers, 0 losses\nDevice unavailable\n");
}

TEST_F(RealCapture, VanishedOrHangingDevice_ReportsNothing_AndKeepsTheRecording) {
    const Format format{44100, 16, 2};
    folder.write("noise", capture::noise(format.bytesPerSecond() * 6));
    for (const std::string end : {"killed", "suspended", "stopped"}) {
        const std::string wav = end + ".wav";
        startServer({format});
        const auto player = play(format, "noise");
        const auto recording = record(format, 60, wav);
        waitForSound(wav, format.bytesPerSecond() * 3 / 2);
        if (end == "suspended")
            capture::said(PACTL, {"suspend-sink", format.name(), "1"});
        else
            ::kill(static_cast<pid_t>(server->processId()), end == "killed" ? SIGKILL : SIGSTOP);
        const std::string told = capture::outputOf(*recording);
        EXPECT_EQ(recording->exitCode(), 0) << end << told;
        EXPECT_GT(alike(folder.read(wav), folder.read("noise"), format), format.rate) << end;
        CaptureFixture::end(player);
        CaptureFixture::end(server);
    }
}

TEST_F(RealCapture, KilledRecording_IsRepaired_ExceptItsLastSecond) {
    const Format format{22050, 16, 1};
    startServer({format});
    folder.write("noise", capture::noise(format.bytesPerSecond() * 6));
    const auto player = play(format, "noise");
    const auto recording = record(format, 1000, "a.wav");
    waitForSound("a.wav", format.bytesPerSecond() * 2);
    ::kill(static_cast<pid_t>(recording->processId()), SIGKILL);
    recording->waitForFinished();
    const std::string damaged = folder.read("a.wav");
    ASSERT_EQ(damaged.substr(0, 44), std::string(44, '\0'));
    const base::TextFiles files{base::CodePage(1252)};
    const recorder::RecordingJournal journal(files, folder.text("Recordings.ini"));
    ASSERT_EQ(journal.entries().size(), 1U);
    const auto noted = journal.entries().front();
    ASSERT_TRUE(recorder::isCutOff(noted.path));
    const recorder::RepairedCopy copy =
        recorder::repairCutOff(noted.path, noted.format, [](double) { return true; });
    EXPECT_EQ(copy.path, folder.text("a repaired.wav"));
    EXPECT_EQ(folder.read("a.wav"), damaged) << "the original is unchanged";
    EXPECT_GT(alike(folder.read("a repaired.wav"), folder.read("noise"), format), format.rate)
        << "at most the last second is lost";
    end(player);
}
