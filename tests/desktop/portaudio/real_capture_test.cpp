// Recordings in processes of their own, from a sound server of the test's own or from none.
#include "desktop/mpv/pulse_daemon.h"
#include "fakes/temporary_folder.h"

#include <QThread>

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <string>

using testing::HasSubstr;

namespace {

struct Format {
    int rate, bits, channels;

    std::size_t bytesPerSecond() const {
        return static_cast<std::size_t>(rate) * static_cast<std::size_t>(bits * channels) / 8;
    }
};

std::string noise(std::size_t size) {
    std::minstd_rand random(static_cast<unsigned>(size));
    std::string bytes(size, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random() >> 8U);
    return bytes;
}

std::string outputOf(QProcess& process) {
    EXPECT_TRUE(process.waitForFinished(30000));
    return process.readAllStandardOutput().toStdString();
}

class RealCapture : public testing::Test {
protected:
    RealCapture() {
        listening::liveIn(path(""));
        useAlsa("pcm.!default { type pulse }\nctl.!default { type pulse }\n");
    }
    void TearDown() override { endPrograms(); }
    void endPrograms() {
        for (QProcess* program : {&player, &server}) {
            program->kill();
            program->waitForFinished();
        }
    }

    std::string path(const std::string& name) const { return (folder.path() / name).string(); }
    void useAlsa(const std::string& configuration) {
        folder.write("asound.conf", configuration);
        qputenv("ALSA_CONFIG_PATH", path("asound.conf").c_str());
    }
    // A sound server into whose only sink noise is played.
    void playNoise(const Format& format) {
        const std::string rate = "rate=" + std::to_string(format.rate);
        const std::string samples = std::string("format=") + (format.bits == 8 ? "u8" : "s16le");
        const std::string channels = "channels=" + std::to_string(format.channels);
        listening::runPulse(server, path(""), "out " + rate + ' ' + samples + ' ' + channels);
        std::string answer;
        for (int i = 0; i < 100 && answer.empty(); ++i) {
            QThread::msleep(50);
            QProcess asking;
            listening::run(asking, PACTL, {"get-default-sink"});
            answer = outputOf(asking);
        }
        folder.write("noise", noise(format.bytesPerSecond() * 8));
        listening::run(
            player, PACAT,
            {"--raw", "--latency-msec=500", "--" + rate, "--" + samples, "--" + channels, path("noise")});
    }
    // Starts a recording of so many buffers into a.wav.
    void record(QProcess& recording, const Format& format, std::size_t buffers) {
        listening::run(recording, RECORDING_PROCESS,
                       {path(""), std::to_string(buffers), std::to_string(format.channels),
                        std::to_string(format.bits), std::to_string(format.rate), path("a.wav")});
    }
    // How many samples of the recording are those of the noise, from its first on; 0 when one of them is not.
    std::size_t alike(const Format& format) const {
        const std::string recorded = folder.read("a.wav");
        if (recorded.size() <= 46)
            return 0;
        // One byte of 0 lies over the first sample, one behind the last.
        const std::string sound = recorded.substr(45, recorded.size() - 46);
        const std::size_t first =
            std::min(sound.find_first_not_of(format.bits == 8 ? '\x80' : '\0'), sound.size());
        const bool found = folder.read("noise").find(sound.substr(first)) != std::string::npos;
        return found ? (sound.size() - first) * 8 / static_cast<std::size_t>(format.bits) : 0;
    }

    fakes::TemporaryFolder folder;
    QProcess server;
    QProcess player;
};

} // namespace

TEST_F(RealCapture, FromASoundServer_IsWhatWasPlayed) {
    for (const Format& format : {Format{48000, 16, 2}, Format{8000, 8, 1}}) {
        playNoise(format);
        QProcess recording;
        record(recording, format, format.bytesPerSecond() * 3 / 8192 + 1);
        EXPECT_THAT(outputOf(recording), HasSubstr(" 0 losses")) << format.rate;
        EXPECT_GT(alike(format), format.rate * format.channels) << format.rate;
        endPrograms();
    }
}

TEST_F(RealCapture, WithoutAServer_EveryFormat_IsWhatAlsaReads) {
    const std::string sound = noise(400000);
    folder.write("noise", sound);
    useAlsa(R"(pcm.!default { type file slave.pcm "null" file "/dev/null" infile ")" + path("noise") +
            R"(" format "raw" } pcm.null { type null })");
    for (const int rate : {48000, 44100, 22050, 11025, 8000}) {
        for (const auto& [bits, channels] : {std::pair{16, 2}, {16, 1}, {8, 2}, {8, 1}}) {
            QProcess recording;
            record(recording, {rate, bits, channels}, 49);
            EXPECT_THAT(outputOf(recording), HasSubstr(" 0 losses"));
            EXPECT_EQ(folder.read("a.wav").compare(45, sound.size() - 1, sound, 1), 0)
                << rate << bits << channels;
        }
    }
}

TEST_F(RealCapture, NoDevice_IsToldInWords_AndLeavesTheEmptyRecording) {
    for (const char* configuration :
         {"", "pcm.!default { type pulse }\n"}) { // none at all; no server behind it
        useAlsa(configuration);
        QProcess recording;
        record(recording, {44100, 16, 2}, 1);
        EXPECT_THAT(outputOf(recording), testing::MatchesRegex("0 buffers, .*\n.*[a-z]{4}.*\n"));
        EXPECT_EQ(folder.read("a.wav").size(), 45U);
    }
}

TEST_F(RealCapture, DeviceThatVanishes_StaysSilent_AndWhatWasCapturedIsWhole) {
    const Format format{44100, 16, 2};
    playNoise(format);
    QProcess recording;
    record(recording, format, 100);
    QThread::msleep(1500);
    server.kill();
    EXPECT_THAT(outputOf(recording), testing::MatchesRegex("[0-9]+ buffers, .*\n"));
    EXPECT_GT(alike(format), format.rate);
}
