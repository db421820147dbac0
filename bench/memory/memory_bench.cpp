// Memory use while playing a recording of three hours, compared with a bare window plus bare libmpv.
#include "fakes/temporary_folder.h"
#include "table.h"
#include "watch/process.h"
#include "watch/window_watch.h"

#include <chrono>
#include <exception>
#include <iostream>
#include <thread>

namespace {

constexpr int rounds = 3;
constexpr std::chrono::seconds playTime{3};
constexpr double goal = 30; // MB more than the baseline

struct Subject {
    std::string command;
    std::string title;
    std::vector<double> rss = {}; // MB
    std::vector<double> pss = {}; // MB
};

void measureOnce(bench::WindowWatch& watch, Subject& subject) {
    bench::Process process({subject.command, MEDIA_FILE});
    watch.waitMapped(process, subject.title);
    process.waitOpen(MEDIA_FILE);
    std::this_thread::sleep_for(playTime);
    const bench::Memory memory = process.memory();
    subject.rss.push_back(static_cast<double>(memory.rss) / 1024);
    subject.pss.push_back(static_cast<double>(memory.pss) / 1024);
}

void run() {
    const fakes::TemporaryFolder folder;
    std::filesystem::copy(PORTABLE_DIR, folder.path(), std::filesystem::copy_options::recursive);
    Subject program{(folder.path() / "quillmere").string(), "Quillmere"};
    Subject bare{BARE_PLAYER, "Bare"};
    bench::WindowWatch watch;
    for (int i = 0; i < rounds; ++i) {
        measureOnce(watch, program);
        measureOnce(watch, bare);
    }
    bench::print(bench::memoryRow("Memory with a file of 3 h, RSS", program.rss, bare.rss, goal));
    bench::print(bench::memoryRow("Memory with a file of 3 h, PSS", program.pss, bare.pss, goal));
}

} // namespace

int main() {
    try {
        run();
    } catch (const std::exception& failure) {
        std::cerr << "memory_bench: " << failure.what() << '\n';
        return 1;
    }
}
