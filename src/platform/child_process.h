// The port to programs that work for this one.
#pragma once

#include "base/text.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace platform {

// Runs one program at a time, without a shell, at low priority, with /dev/null as its standard input. The
// program is killed when this object is destroyed or the process ends.
class ChildProcess {
public:
    struct End {
        enum class How : std::uint8_t { Exited, Killed, NotStarted };
        How how = How::Exited;
        int code = 0;       // exit status, or the number of the signal
        base::Text failure; // of NotStarted, in the system's words
    };

    ChildProcess() = default;
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    virtual ~ChildProcess() = default;

    // Starts the program, a path or a name that is looked up in PATH, with its arguments. `folder` becomes
    // its current directory. A program that still runs is cancelled.
    virtual void start(const std::vector<base::Text>& command, const base::Text& folder) = 0;
    // Ends the program and all that it has started: first by asking, 2 s later by force. Nothing is called
    // afterwards.
    virtual void cancel() = 0;
    // True if the system has a program of this path or name.
    virtual bool isInstalled(const base::Text& program) const = 0;

    // A line that it printed, without its end; empty lines are left out. Too long ones come in parts.
    std::function<void(base::TextView line)> OutputLine = [](base::TextView) {};
    std::function<void(base::TextView line)> ErrorLine = [](base::TextView) {};
    // The program ended by itself, and all of its lines have been reported.
    std::function<void(const End& end)> Finished = [](const End&) {};
};

} // namespace platform
