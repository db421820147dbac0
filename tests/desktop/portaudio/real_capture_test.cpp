#include "capture_fixture.h"
#include "contracts/wave_input_contract.h"
#include "portaudio_input.h"
#include "recorder/cut_off_recordings.h"
#include "recorder/wav_repair.h"

#include <csignal>
#include <gmock/gmock.h>

using capture::Format;
using testing::HasSubstr;

class RealCapture : public capture::CaptureFixture {};

namespace {

std::string words(const Format& format) {
    return std::to_string(format.rate) + " " + std::to_string(format.channels) + " " +
           std::to_string(format.bits);
}

struct PortAudioBench : contracts::WaveInputBench {
    PortAudioBench() { capture::useAlsa(folder, capture::fileDevice("/dev/zero")); }
    platform::WaveInput& device() override { return input; }
    void takeDeviceAway() override { capture::useAlsa(folder, ""); }
    void listen() override { listening::runLoop(1); }

    fakes::TemporaryFolder folder;
    desktop::PortAudioInput input;
};

} // namespace

namespace contracts {

INSTANTIATE_TEST_SUITE_P(PortAudio, WaveInputContract, testing::Values(make<WaveInputBench, PortAudioBench>));

} // namespace contracts

TEST_F(RealCapture, FromASoundServer_EveryFormat_IsWhatWasPlayed) {
    const auto formats = capture::allFormats();
    startServer(formats);
    std::vector<std::unique_ptr<QProcess>> recordings;
    std::vector<std::unique_ptr<QProcess>> players;
    for (const Format& format : formats) {
        folder.write(format.name(), capture::noise(format.bytesPerSecond() * 8));
        players.push_back(play(format, format.name()));
        recordings.push_back(record(format, format.bytesPerSecond() * 3 / 8192 + 1, format.name() + ".wav"));
    }
    std::puts("samples/s  bits  channels  samples alike  the device said");
    for (std::size_t i = 0; i < formats.size(); ++i) {
        const Format& format = formats[i];
        const std::string told = capture::outputOf(*recordings[i]);
        const std::string wav = format.name() + ".wav";
        const long samples = alike(folder.read(wav), folder.read(format.name()), format);
        std::printf("%9d  %4d  %8d  %13ld  %s", format.rate, format.bits, format.channels, samples,
                    told.substr(told.find('\n') + 1).c_str());
        EXPECT_GT(samples, format.rate * format.channels) << format.name();
        EXPECT_THAT(told, HasSubstr(" 0 losses")) << format.name();
        std::string sox;
        for (const char* option : {"-r", "-c", "-b"})
            sox += (sox.empty() ? "" : " ") + capture::said(SOXI, {option, path(wav)});
        EXPECT_EQ(sox, words(format));
        EXPECT_EQ(capture::said(FFPROBE, {"-v", "error", "-show_entries",
                                          "stream=sample_rate,channels,bits_per_sample", "-of",
                                          "default=nw=1:nk=1", path(wav)}),
                  words(format));
    }
    for (const auto& player : players)
        end(player);
}

TEST_F(RealCapture, WithoutAServer_EveryFormat_IsWhatAlsaReads) {
    folder.write("noise", capture::noise(400000));
    useAlsa(capture::fileDevice(path("noise")));
    for (const Format& format : capture::allFormats()) {
        const auto recording = record(format, 49, "a.wav");
        EXPECT_THAT(capture::outputOf(*recording), HasSubstr(" 0 losses"));
        const std::string wav = folder.read("a.wav").substr(0, 44 + 400000);
        ASSERT_EQ(wav.size(), 44U + 400000) << format.name();
        EXPECT_EQ(wav.compare(45, wav.npos, folder.read("noise"), 1, std::string::npos), 0) << format.name();
    }
}

TEST_F(RealCapture, NoDevice_IsToldInWords_AndLeavesTheEmptyRecording) {
    for (const char* configuration :
         {"", "pcm.!default { type pulse }\n"}) { // none at all; no server behind it
        useAlsa(configuration);
        const auto recording = record({44100, 16, 2}, 1, "a.wav");
        EXPECT_THAT(capture::outputOf(*recording),
                    testing::MatchesRegex("started\n0 buffers, .*\n.*[a-z]{4}.*\n"));
        EXPECT_EQ(recording->exitCode(), 1);
        EXPECT_EQ(folder.read("a.wav").size(), 45U);
    }
}

TEST_F(RealCapture, ServerThatHangsAtTheStart_IsToldWhileTheLoopRunsOn) {
    const Format format{44100, 16, 2};
    startServer({format});
    ::kill(static_cast<pid_t>(server->processId()), SIGSTOP);
    const auto recording = record(format, 90, "a.wav");
    EXPECT_TRUE(recording->waitForReadyRead(3000)) << "the start is over, and does not wait for the device";
    EXPECT_EQ(capture::outputOf(*recording),
              "started\n0 buffers, 0 losses, latest 0 ms late\nDevice unavailable\n");
}

TEST_F(RealCapture, DeviceThatVanishesOrHangs_StaysSilent_AndWhatWasCapturedIsWhole) {
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

TEST_F(RealCapture, KilledRecording_IsRepaired_ButForItsLastMoments) {
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
    EXPECT_EQ(capture::said(SOXI, {"-r", base::toUtf8(copy.path)}), "22050");
    EXPECT_EQ(folder.read("a.wav"), damaged) << "the original stays";
    EXPECT_GT(alike(folder.read("a repaired.wav"), folder.read("noise"), format), format.rate)
        << "at most the last second is lost";
    end(player);
}
