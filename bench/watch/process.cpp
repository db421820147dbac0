#include "watch/process.h"

#include <csignal>
#include <cstring>
#include <fstream>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace bench {

Process::Process(const std::vector<std::string>& command) {
    std::vector<char*> arguments;
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

} // namespace bench
