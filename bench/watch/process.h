#pragma once

#include <functional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace bench {

// Memory of a process, in kB. RSS counts all of its pages; PSS counts of a page that several processes use
// its share only.
struct Memory {
    long rss = 0;
    long pss = 0;
};

// A program that was started. It is ended with the object.
class Process {
public:
    // Path of the program, then its arguments. Throws std::runtime_error when it cannot be started.
    explicit Process(const std::vector<std::string>& command);
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    ~Process();

    pid_t id() const { return id_; }
    bool running();
    Memory memory() const;
    // Calls `done` until it answers true. Throws when the program ends before that, or it takes too long.
    void waitUntil(const char* what, const std::function<bool()>& done);
    // Waits until the program has this file open.
    void waitOpen(const std::string& path);

private:
    pid_t id_ = -1;
};

} // namespace bench
