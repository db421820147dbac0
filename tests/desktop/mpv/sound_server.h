// A private sound server, and analysis of what was played on it.
#pragma once

#include "desktop/eventually.h"
#include "fakes/temporary_folder.h"
#include "pulse_daemon.h"

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <numeric>
#include <vector>

namespace listening {

using fakes::eventually;
using fakes::runLoop;

constexpr int sampleRate = 44100;

using Samples = std::vector<std::int16_t>;

inline Samples samplesOf(const QByteArray& bytes) {
    Samples samples(static_cast<std::size_t>(bytes.size()) / sizeof(std::int16_t));
    std::memcpy(samples.data(), bytes.data(), samples.size() * sizeof(std::int16_t));
    return samples;
}

// One sound between two silences: its first sample, and the one after its last.
struct Sound {
    std::size_t begin;
    std::size_t end;
};

// The sounds in a recording. Silences shorter than `gap` seconds count as part of a sound.
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

constexpr std::size_t alikeLength = 700; // samples, enough to identify a position

// The position in seconds at which `source` best matches what was `heard` from sample `from` on, within 0.8 s
// of `expected`; NaN if nothing matches.
inline double placeIn(const Samples& source, const Samples& heard, std::size_t from, double expected) {
    const auto product = [](const std::int16_t* a, const std::int16_t* b) {
        return std::inner_product(a, a + alikeLength, b, 0.0);
    };
    const std::int16_t* const sound = heard.data() + from;
    const double energy = product(sound, sound);
    const auto first = static_cast<std::size_t>(std::max(expected - 0.8, 0.0) * sampleRate);
    const auto last =
        std::min(static_cast<std::size_t>((expected + 0.8) * sampleRate), source.size() - alikeLength);
    double best = 0.5; // clear voice leaves little of a noise
    double place = std::nan("");
    for (std::size_t at = first; at <= last; ++at) {
        const std::int16_t* const there = source.data() + at;
        const double likeness = product(there, sound) / std::sqrt(energy * product(there, there) + 1);
        if (likeness > best) {
            best = likeness;
            place = static_cast<double>(at) / sampleRate;
        }
    }
    return place;
}

// The same for the sound that ends before sample `end`: the position after it.
inline double placeBehind(const Samples& source, const Samples& heard, std::size_t end, double expected) {
    return placeIn(source, heard, end - alikeLength, expected) +
           static_cast<double>(alikeLength) / sampleRate;
}

// A sound server with one null sink, whose input is recorded.
class SoundServer {
public:
    SoundServer() {
        liveIn(folder_.path().string());
        start();
    }
    ~SoundServer() { stop(); }

    void stop() {
        for (QProcess* process : {&recorder_, &daemon_}) {
            process->kill();
            process->waitForFinished();
        }
    }
    void start() {
        runPulse(daemon_, folder_.path().string(), {"out"});
        // The server is ready when the recorder gets its first sample.
        eventually([&] {
            if (recorder_.state() == QProcess::NotRunning)
                run(recorder_, PAREC,
                    {"--device=out.monitor", "--raw", "--format=s16le", "--channels=1", "--rate=44100",
                     "--latency-msec=20"});
            runLoop(20);
            return recorder_.bytesAvailable() > 0;
        });
    }

    // False if the server could not be started.
    bool running() const {
        return recorder_.state() == QProcess::Running && daemon_.state() == QProcess::Running;
    }

    // The sound since the last call, followed by a little silence.
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
