// What the program's player adds to libmpv: each step of a dictation, by the player and by a bare loop in
// turn, on the same file and on the null output, in milliseconds until its effect can be read. One number in
// another run says little; the two of one run can be compared on any machine.
#include "bare_loop.h"
#include "mpv_player.h"

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

// The player as the program uses it, each call returning when its effect is seen on the Qt loop.
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

    desktop::MpvPlayer player_{{"null", desktop::Pictures::Off}};
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

// One round of a dictation; the times go to `times` by the name of the step.
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

double median(std::vector<double> values) {
    std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2),
                     values.end());
    return values[values.size() / 2];
}

// True when the player is as near to the bare loop as it has to be.
bool meetsGoal(const std::string& step, double player, double bare) {
    return step == "load" ? player <= 1.3 * bare : player <= bare + 5;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const int rounds = argc > 1 ? std::atoi(argv[1]) : 25;
    auto start = Clock::now();
    ProgramsPlayer player;
    const double made = millisecondsSince(start);
    BareLoop bare;
    std::map<std::string, std::vector<double>> playerTimes;
    std::map<std::string, std::vector<double>> bareTimes;
    for (int i = 0; i < rounds; ++i) {
        dictate(player, playerTimes);
        dictate(bare, bareTimes);
    }
    std::printf("Medians of %d rounds in milliseconds. Making the player took %.1f.\n", rounds, made);
    std::printf("%-16s %9s %9s %7s  %s\n", "step", "player", "bare", "ratio", "goal");
    for (const auto& [step, times] : playerTimes) {
        const double ours = median(times);
        const double theirs = median(bareTimes[step]);
        std::printf("%-16s %9.3f %9.3f %7.2f  %s\n", step.c_str(), ours, theirs, ours / theirs,
                    meetsGoal(step, ours, theirs) ? "met" : "MISSED");
    }
}
