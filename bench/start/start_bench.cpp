// Time from process start to the visible window, and the memory use at that moment: the player without a
// file, compared with a bare window with a menu and a text.
#include "fakes/temporary_folder.h"
#include "table.h"
#include "watch/process.h"
#include "watch/window_watch.h"

#include <chrono>
#include <exception>
#include <iostream>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int rounds = 41;
constexpr std::chrono::milliseconds untilAtRest{800};
constexpr double startGoal = 1.6;
constexpr double memoryGoal = 20; // MB more than the baseline

struct Subject {
    std::string command;
    std::string title;
    bench::WindowWatch::Look atRest = {};
    std::vector<double> start = {}; // ms
    std::vector<double> rss = {};   // MB
    std::vector<double> pss = {};   // MB
};

// The first start fills the system's caches and shows the window's final look.
void warmUp(bench::WindowWatch& watch, Subject& subject) {
    bench::Process process({subject.command});
    const auto window = watch.waitMapped(process, subject.title);
    std::this_thread::sleep_for(untilAtRest);
    subject.atRest = watch.look(window);
}

void measureOnce(bench::WindowWatch& watch, Subject& subject) {
    xcb_window_t window = XCB_NONE;
    {
        const auto begin = Clock::now();
        bench::Process process({subject.command});
        window = watch.waitMapped(process, subject.title);
        watch.waitLook(process, window, subject.atRest);
        subject.start.push_back(std::chrono::duration<double, std::milli>(Clock::now() - begin).count());
        const bench::Memory memory = process.memory();
        subject.rss.push_back(static_cast<double>(memory.rss) / 1024);
        subject.pss.push_back(static_cast<double>(memory.pss) / 1024);
    }
    watch.waitGone(window); // otherwise the next start would compete with the end of this one
}

void run() {
    const fakes::TemporaryFolder folder;
    std::filesystem::copy(PORTABLE_DIR, folder.path(), std::filesystem::copy_options::recursive);
    Subject program{(folder.path() / "quillmere").string(), "Quillmere"};
    Subject bare{BARE_WINDOW, "Bare"};

    bench::WindowWatch watch;
    warmUp(watch, program);
    warmUp(watch, bare);
    for (int i = 0; i < rounds; ++i) {
        measureOnce(watch, program);
        measureOnce(watch, bare);
    }
    const double ratio = bench::median(program.start) / bench::median(bare.start);
    bench::print({"Process start to visible window", bench::measure("%.1f ms", bench::median(program.start)),
                  bench::measure("%.1f ms", bench::median(bare.start)), bench::measure("x %.2f", ratio),
                  bench::measure("<= x %.1f", startGoal), ratio <= startGoal});
    bench::print(bench::memoryRow("Memory at that moment, RSS", program.rss, bare.rss, memoryGoal));
    bench::print(bench::memoryRow("Memory at that moment, PSS", program.pss, bare.pss, memoryGoal));
}

} // namespace

int main() {
    try {
        run();
    } catch (const std::exception& failure) {
        std::cerr << "start_bench: " << failure.what() << '\n';
        return 1;
    }
}
