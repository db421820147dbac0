// Recordings in separate processes, with or without a private sound server.
#include "contracts/wave_input_contract.h"
#include "desktop/eventually.h"
#include "desktop/mpv/pulse_daemon.h"
#include "fakes/temporary_folder.h"
#include "portaudio_input.h"

#include <csignal>
#include <gmock/gmock.h>
#include <random>

namespace {

struct Format {
    int rate, bits, channels;

    std::size_t bytesPerSecond() const {
        return static_cast<std::size_t>(rate) * static_cast<std::size_t>(bits * channels) / 8;
    }
    std::string name() const {
        return "f" + std::to_string(rate) + "_" + std::to_string(bits) + "_" + std::to_string(channels);
    }
};

std::string noise(std::size_t size) {
    std::minstd_rand random(static_cast<unsigned>(size));
    std::string bytes(size, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random() >> 8U);
    return bytes;
}

std::unique_ptr<QProcess> run(const char* program, const std::vector<std::string>& arguments) {
    auto process = std::make_unique<QProcess>();
    listening::run(*process, program, arguments);
    return process;
}

std::string outputOf(QProcess& process) {
    EXPECT_TRUE(process.waitForFinished(30000));
    return process.readAllStandardOutput().toStdString();
}

// The output of a program, without line ends.
std::string said(const char* program, const std::vector<std::string>& arguments) {
    const auto process = run(program, arguments);
    return QString::fromStdString(outputOf(*process)).simplified().toStdString();
}

// From now on, this is ALSA's whole configuration.
void useAlsa(const fakes::TemporaryFolder& folder, const std::string& configuration) {
    folder.write("asound.conf", configuration);
    qputenv("ALSA_CONFIG_PATH", (folder.path() / "asound.conf").c_str());
}

// An ALSA device that returns the bytes of a file as fast as it is read.
std::string fileDevice(const std::string& file) {
    return R"(pcm.!default { type file slave.pcm "null" file "/dev/null" infile ")" + file +
           R"(" format "raw" } pcm.null { type null })";
}

struct RealCapture : testing::Test {
    RealCapture() {
        listening::liveIn(path(""));
        useAlsa("pcm.!default { type pulse }\nctl.!default { type pulse }\n");
    }
    void TearDown() override { end(server); }
    static void end(const std::unique_ptr<QProcess>& process) {
        if (!process)
            return;
        process->kill();
        process->waitForFinished();
    }

    std::string path(const std::string& name) const { return (folder.path() / name).string(); }
    void useAlsa(const std::string& configuration) const { ::useAlsa(folder, configuration); }
    // Starts a sound server with one sink per format, whose monitors are recorded.
    void startServer(const std::vector<Format>& formats) {
        std::vector<std::string> sinks;
        sinks.reserve(formats.size());
        for (const Format& format : formats)
            sinks.push_back(format.name() + " rate=" + std::to_string(format.rate) + " format=" +
                            sampleFormat(format) + " channels=" + std::to_string(format.channels));
        server = std::make_unique<QProcess>();
        listening::runPulse(*server, path(""), sinks);
        fakes::eventually([] { return !said(PACTL, {"get-default-sink"}).empty(); });
    }
    std::unique_ptr<QProcess> play(const Format& format, const std::string& file) const {
        return run(PACAT, {"--playback", "--raw", "--latency-msec=500", "--device=" + format.name(),
                           "--rate=" + std::to_string(format.rate), "--format=" + sampleFormat(format),
                           "--channels=" + std::to_string(format.channels), path(file)});
    }
    std::unique_ptr<QProcess> record(const Format& format, std::size_t buffers,
                                     const std::string& file) const {
        qputenv("PULSE_SOURCE", (format.name() + ".monitor").c_str());
        return run(RECORDING_PROCESS, {path(""), std::to_string(buffers), std::to_string(format.channels),
                                       std::to_string(format.bits), std::to_string(format.rate), path(file)});
    }
    void waitForSound(const std::string& file, std::size_t bytes) const {
        fakes::eventually([&] { return folder.read(file).size() >= bytes; }, 10'000);
    }
    static std::string sampleFormat(const Format& format) { return format.bits == 8 ? "u8" : "s16le"; }

    // The number of samples that match `played`, from its first noise to the end of the last whole buffer;
    // negative: the number of wrong samples. Ignores the known end effects: one zero byte over the first
    // sample and one after the last.
    static long alike(const std::string& file, const std::string& played, const Format& format) {
        if (file.size() < 44 + 8192 + 1 || file.back() != '\0')
            return 0;
        const std::string sound = file.substr(45, file.size() - 46);
        const char silence = format.bits == 8 ? '\x80' : '\0';
        const std::size_t first = sound.find_first_not_of(silence);
        if (first == std::string::npos)
            return 0;
        const std::string key = sound.substr(first, 64);
        const std::size_t at = played.find(key);
        if (at == std::string::npos)
            return -1;
        long count = 0, wrong = 0;
        for (std::size_t i = first; i < sound.size(); ++i)
            (at + i - first < played.size() && sound[i] == played[at + i - first]) ? ++count : ++wrong;
        return wrong > 0 ? -wrong : count * 8 / format.bits;
    }

    fakes::TemporaryFolder folder;
    std::unique_ptr<QProcess> server;
};

struct PortAudioBench : contracts::WaveInputBench {
    PortAudioBench() { useAlsa(folder, fileDevice("/dev/zero")); }
    platform::WaveInput& device() override { return input; }
    void takeDeviceAway() override { useAlsa(folder, ""); }
    void listen() override { fakes::runLoop(1); }

    fakes::TemporaryFolder folder;
    desktop::PortAudioInput input;
};

} // namespace

namespace contracts {

INSTANTIATE_TEST_SUITE_P(PortAudio, WaveInputContract, testing::Values(make<WaveInputBench, PortAudioBench>));

} // namespace contracts

TEST_F(RealCapture, SoundServer_EveryFormat_RecordsWhatWasPlayed) {
    std::vector<Format> formats;
    for (const int rate : {48000, 44100, 22050, 11025, 8000})
        for (const int bits : {16, 8})
            for (const int channels : {2, 1})
                formats.push_back({rate, bits, channels});
    startServer(formats);
    std::vector<std::unique_ptr<QProcess>> recordings;
    std::vector<std::unique_ptr<QProcess>> players;
    for (const Format& format : formats) {
        folder.write(format.name(), noise(format.bytesPerSecond() * 8));
        players.push_back(play(format, format.name()));
        recordings.push_back(record(format, format.bytesPerSecond() * 3 / 8192 + 1, format.name() + ".wav"));
    }
    for (std::size_t i = 0; i < formats.size(); ++i) {
        const Format& format = formats[i];
        const std::string told = outputOf(*recordings[i]);
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
    EXPECT_EQ(outputOf(*recording), "started\n0 buffers, 0 losses\nDevice unavailable\n");
}

TEST_F(RealCapture, VanishedOrHangingDevice_ReportsNothing_AndKeepsTheRecording) {
    const Format format{44100, 16, 2};
    folder.write("noise", noise(format.bytesPerSecond() * 6));
    for (const std::string end : {"killed", "suspended", "stopped"}) {
        const std::string wav = end + ".wav";
        startServer({format});
        const auto player = play(format, "noise");
        const auto recording = record(format, 60, wav);
        waitForSound(wav, format.bytesPerSecond() * 3 / 2);
        if (end == "suspended")
            said(PACTL, {"suspend-sink", format.name(), "1"});
        else
            ::kill(static_cast<pid_t>(server->processId()), end == "killed" ? SIGKILL : SIGSTOP);
        const std::string told = outputOf(*recording);
        EXPECT_EQ(recording->exitCode(), 0) << end << told;
        EXPECT_GT(alike(folder.read(wav), folder.read("noise"), format), format.rate) << end;
        RealCapture::end(player);
        RealCapture::end(server);
    }
}
