// A sound server of the test's own, and what was heard on it.
#pragma once

#include "fakes/temporary_folder.h"
#include "listening.h"

#include <QProcess>

#include <cmath>
#include <cstdlib>
#include <vector>

namespace listening {

constexpr int sampleRate = 44100;

using Samples = std::vector<std::int16_t>;

inline Samples samplesOf(const QByteArray& bytes) {
    Samples samples(static_cast<std::size_t>(bytes.size()) / sizeof(std::int16_t));
    std::memcpy(samples.data(), bytes.data(), samples.size() * sizeof(std::int16_t));
    return samples;
}

// One stretch of sound between two silences: its first sample, and the one behind its last.
struct Sound {
    std::size_t begin;
    std::size_t end;
};

// The sounds in a recording. Less than `gap` seconds without a sound belong to the sound around them.
inline std::vector<Sound> soundsIn(const Samples& heard, double gap = 0.05) {
    std::vector<Sound> sounds;
    for (std::size_t i = 0; i < heard.size(); ++i) {
        if (std::abs(heard[i]) <= 2)
            continue;
        if (sounds.empty() || i > sounds.back().end + static_cast<std::size_t>(gap * sampleRate))
            sounds.push_back({i, i});
        sounds.back().end = i + 1;
    }
    return sounds;
}

// The place in seconds at which `source` is most like the `length` samples of `heard` from `from` on, looked
// for up to 0.8 s around `expected`; NaN where nothing there is alike.
inline double placeIn(const Samples& source, const Samples& heard, std::size_t from, double expected) {
    constexpr std::size_t length = 700;
    constexpr double alike = 0.9;
    const auto energy = [](const std::int16_t* samples) {
        double sum = 0;
        for (std::size_t i = 0; i < length; ++i)
            sum += static_cast<double>(samples[i]) * samples[i];
        return sum;
    };
    const std::int16_t* const sound = heard.data() + from;
    const double soundEnergy = energy(sound);
    const auto first = static_cast<std::size_t>(std::max(expected - 0.8, 0.0) * sampleRate);
    const auto last =
        std::min(static_cast<std::size_t>((expected + 0.8) * sampleRate), source.size() - length);
    double best = alike;
    double place = std::nan("");
    for (std::size_t at = first; at <= last; ++at) {
        double product = 0;
        for (std::size_t i = 0; i < length; ++i)
            product += static_cast<double>(source[at + i]) * sound[i];
        const double likeness = product / std::sqrt(soundEnergy * energy(source.data() + at) + 1);
        if (likeness > best) {
            best = likeness;
            place = static_cast<double>(at) / sampleRate;
        }
    }
    return place;
}

// The same for the last sound before `end`: the place behind it.
inline double placeBehind(const Samples& source, const Samples& heard, std::size_t end, double expected) {
    constexpr std::size_t length = 700;
    return placeIn(source, heard, end - length, expected) + static_cast<double>(length) / sampleRate;
}

// A PulseAudio daemon with one sink that goes nowhere; whatever reaches it is recorded. Clients made after it
// find it by the environment.
class SoundServer {
public:
    SoundServer() {
        const QString folder = QString::fromStdString(folder_.path().string());
        const QString socket = folder + QStringLiteral("/socket");
        for (const char* name : {"HOME", "XDG_CONFIG_HOME", "PULSE_RUNTIME_PATH", "PULSE_STATE_PATH"})
            qputenv(name, folder.toUtf8());
        qputenv("PULSE_SERVER", "unix:" + socket.toUtf8());
        daemon_.setStandardErrorFile(QProcess::nullDevice());
        daemon_.start(QStringLiteral(PULSEAUDIO),
                      {QStringLiteral("-n"), QStringLiteral("--daemonize=no"),
                       QStringLiteral("--use-pid-file=no"), QStringLiteral("--exit-idle-time=-1"),
                       QStringLiteral("-L"),
                       QStringLiteral("module-native-protocol-unix auth-anonymous=1 socket=") + socket,
                       QStringLiteral("-L"), QStringLiteral("module-null-sink sink_name=out norewinds=1")});
        // The server answers when the recorder gets its first sample.
        waitFor([&] {
            if (recorder_.state() == QProcess::NotRunning) {
                recorder_.start(QStringLiteral(PAREC),
                                {QStringLiteral("--device=out.monitor"), QStringLiteral("--raw"),
                                 QStringLiteral("--format=s16le"), QStringLiteral("--channels=1"),
                                 QStringLiteral("--rate=44100"), QStringLiteral("--latency-msec=20")});
                recorder_.waitForStarted();
            }
            runLoop(20);
            return recorder_.bytesAvailable() > 0;
        });
    }
    ~SoundServer() {
        for (QProcess* process : {&recorder_, &daemon_}) {
            process->terminate();
            if (!process->waitForFinished(2000))
                process->kill();
        }
    }

    // False when the server could not be started.
    bool running() const {
        return recorder_.state() == QProcess::Running && daemon_.state() == QProcess::Running;
    }

    // What was heard since the last call, and a little silence behind it.
    Samples heard() {
        runLoop(200);
        return samplesOf(recorder_.readAllStandardOutput());
    }

private:
    fakes::TemporaryFolder folder_;
    QProcess daemon_;
    QProcess recorder_;
};

} // namespace listening
