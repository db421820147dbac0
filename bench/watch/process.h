#pragma once

#include <functional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace bench {

// Memory of a process, in kB. RSS counts all its pages; PSS divides shared pages by the number of processes
// that share them.
struct Memory {
    long rss = 0;
    long pss = 0;
};

// A started program. It is killed with this object.
class Process {
public:
    // Program path and arguments. Throws std::runtime_error if it cannot be started.
    explicit Process(const std::vector<std::string>& command);
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    ~Process();

    pid_t id() const { return id_; }
    bool running();
    Memory memory() const;
    // Calls `done` until it returns true. Throws std::runtime_error if the program ends first or after a
    // timeout.
    void waitUntil(const char* what, const std::function<bool()>& done);
    // Waits until the program has this file open.
    void waitOpen(const std::string& path);

private:
    pid_t id_ = -1;
};

} // namespace bench
