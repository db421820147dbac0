// What the program's player adds to libmpv: each step of dictation with the player and with a bare loop,
// interleaved, on the same file and the null output. Times are in ms until the effect can be read. Numbers of
// different runs are hard to compare, but the ratio of the two in one run holds on any machine.
#include "bare_loop.h"
#include "core_share.h"
#include "mpv_player.h"
#include "table.h"

#include <QCoreApplication>
#include <QThread>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
using platform::PlayState;

double millisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

// The player as the program uses it; each call returns when its effect is visible in the Qt event loop.
class ProgramsPlayer {
public:
    void load(const char* path) {
        player_.setURL(base::fromUtf8(path));
        waitFor([&] { return player_.playState() == PlayState::Playing; });
    }
    void unload() {
        player_.setURL(u"");
        settle();
    }
    void pause(bool paused) { paused ? player_.pause() : player_.play(); }
    void seek(double seconds) { player_.setCurrentPosition(seconds); }
    void adjust(const platform::SoundAdjustment& sound) { player_.adjustSound(sound); }
    double position() {
        QCoreApplication::processEvents();
        return player_.currentPosition();
    }

private:
    template <typename Condition>
    void waitFor(Condition condition) {
        while (!condition())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    static void settle() {
        for (int i = 0; i < 30; ++i) {
            QCoreApplication::processEvents();
            QThread::msleep(1);
        }
    }

    desktop::MpvPlayer player_{{"null"}};
};

template <typename Player>
double waitUntilMoved(Player& player, double from) {
    const auto start = Clock::now();
    while (player.position() <= from)
        QThread::usleep(50);
    return millisecondsSince(start);
}

template <typename Player>
void waitUntilStill(Player& player) {
    double last = -1;
    for (double now = player.position(); now != last; now = player.position()) {
        last = now;
        QThread::usleep(100);
    }
}

template <typename Player>
void playFor(Player& player, int milliseconds) {
    for (const auto start = Clock::now(); millisecondsSince(start) < milliseconds; QThread::usleep(500))
        player.position();
}

// Runs one round of dictation steps; appends the times to `times` by step name.
template <typename Player>
void dictate(Player& player, std::map<std::string, std::vector<double>>& times) {
    const auto measure = [&](const char* name, auto step) {
        const auto start = Clock::now();
        step();
        times[name].push_back(millisecondsSince(start));
    };
    measure("load", [&] { player.load(MEDIA_FILE); });
    player.seek(100);
    playFor(player, 150);
    measure("pause", [&] {
        player.pause(true);
        waitUntilStill(player);
    });
    const double held = player.position();
    measure("play", [&] {
        player.pause(false);
        waitUntilMoved(player, held);
    });
    playFor(player, 100);
    const double target = player.position() - 3;
    measure("step back", [&] {
        player.seek(target);
        waitUntilMoved(player, target);
    });
    playFor(player, 20);
    measure("read position", [&] {
        for (int i = 0; i < 1000; ++i)
            player.position();
    });
    player.unload();
}

// Compares with the goals.
bench::Row row(const std::string& step, double player, double bare) {
    constexpr double loadGoal = 1.3;
    constexpr double stepGoal = 5; // ms
    const double ratio = player / bare;
    if (step == "load")
        return {"Player, load to sound ready",         bench::measure("%.2f ms", player),
                bench::measure("%.2f ms", bare),       bench::measure("x %.2f", ratio),
                bench::measure("<= x %.1f", loadGoal), ratio <= loadGoal};
    if (step == "read position") // ms for a thousand reads are us for one
        return {"Player, " + step, bench::measure("%.2f us", player), bench::measure("%.2f us", bare),
                bench::measure("x %.2f", ratio), ""};
    return {"Player, " + step,
            bench::measure("%.2f ms", player),
            bench::measure("%.2f ms", bare),
            bench::measure("%+.2f ms", player - bare),
            bench::measure("<= %+.0f ms", stepGoal),
            player - bare <= stepGoal};
}

// What a clear voice costs: CPU time while it plays, and the time until a step back sounds.
void compareClearVoice(ProgramsPlayer& player, int rounds) {
    constexpr int watched = 4000;   // ms
    constexpr double coreGoal = 5;  // per cent of one core
    constexpr double stepGoal = 50; // ms
    std::vector<double> shares[2];
    std::vector<double> steps[2];
    player.load(MEDIA_FILE);
    for (int i = 0; i < std::max(rounds / 5, 1); ++i) {
        for (const bool isClear : {false, true}) {
            player.adjust({.clearVoice = isClear});
            player.seek(100);
            playFor(player, 500);
            shares[isClear].push_back(bench::coreShare(watched));
            const double target = player.position() - 3;
            const auto start = Clock::now();
            player.seek(target);
            waitUntilMoved(player, target);
            steps[isClear].push_back(millisecondsSince(start));
        }
    }
    const double share = bench::median(shares[1]) - bench::median(shares[0]);
    const double step = bench::median(steps[1]) - bench::median(steps[0]);
    bench::print({"Clear voice, share of one core", bench::measure("%.1f %%", bench::median(shares[1])),
                  bench::measure("%.1f %%", bench::median(shares[0])), bench::measure("%+.1f %%", share),
                  bench::measure("<= %+.0f %%", coreGoal), share <= coreGoal});
    bench::print({"Clear voice, step back", bench::measure("%.1f ms", bench::median(steps[1])),
                  bench::measure("%.1f ms", bench::median(steps[0])), bench::measure("%+.1f ms", step),
                  bench::measure("<= %+.0f ms", stepGoal), step <= stepGoal});
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const int rounds = argc > 1 ? std::atoi(argv[1]) : 25;
    ProgramsPlayer player;
    BareLoop bare;
    std::map<std::string, std::vector<double>> playerTimes;
    std::map<std::string, std::vector<double>> bareTimes;
    for (int i = 0; i < rounds; ++i) {
        dictate(player, playerTimes);
        dictate(bare, bareTimes);
    }
    for (const auto& [step, times] : playerTimes)
        bench::print(row(step, bench::median(times), bench::median(bareTimes[step])));
    compareClearVoice(player, rounds);
}
