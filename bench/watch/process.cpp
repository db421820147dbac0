#include "watch/process.h"

#include <chrono>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace bench {

namespace {

constexpr std::chrono::seconds patience{20};
// Fine enough to measure starts of tens of milliseconds, coarse enough to leave the CPU to the program.
constexpr std::chrono::microseconds pollPeriod{200};

} // namespace

Process::Process(const std::vector<std::string>& command) {
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    if (const int error = ::posix_spawn(&id_, arguments[0], nullptr, nullptr, arguments.data(), ::environ))
        throw std::runtime_error(command[0] + ": " + std::strerror(error));
}

Process::~Process() {
    if (id_ > 0 && ::kill(id_, SIGKILL) == 0)
        ::waitpid(id_, nullptr, 0);
}

bool Process::running() {
    if (id_ > 0 && ::waitpid(id_, nullptr, WNOHANG) == id_)
        id_ = -1;
    return id_ > 0;
}

Memory Process::memory() const {
    std::ifstream file("/proc/" + std::to_string(id_) + "/smaps_rollup");
    Memory memory;
    for (std::string word; file >> word;) {
        if (word == "Rss:")
            file >> memory.rss;
        else if (word == "Pss:")
            file >> memory.pss;
    }
    return memory;
}

void Process::waitUntil(const char* what, const std::function<bool()>& done) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!done()) {
        if (!running())
            throw std::runtime_error(std::string("the program ended before this: ") + what);
        if (std::chrono::steady_clock::now() > end)
            throw std::runtime_error(std::string("this never came: ") + what);
        std::this_thread::sleep_for(pollPeriod);
    }
}

void Process::waitOpen(const std::string& path) {
    waitUntil("its open file", [&] {
        std::error_code ignored;
        for (const auto& file :
             std::filesystem::directory_iterator("/proc/" + std::to_string(id_) + "/fd", ignored)) {
            if (std::filesystem::read_symlink(file.path(), ignored) == path)
                return true;
        }
        return false;
    });
}

} // namespace bench
