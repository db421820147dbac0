#pragma once

#include "platform/child_process.h"

#include <set>

namespace fakes {

// A child process that prints and ends when the test says so.
class FakeChildProcess : public platform::ChildProcess {
public:
    std::vector<base::Text> command; // of the last start
    base::Text folder;
    bool running = false;
    std::set<base::Text> missing; // programs

    void start(const std::vector<base::Text>& words, const base::Text& in) override {
        command = words;
        folder = in;
        running = true;
    }
    void cancel() override { running = false; }
    bool isInstalled(const base::Text& program) const override { return !missing.contains(program); }

    // Nothing comes from a program that does not run.
    void print(base::TextView line) {
        if (running)
            OutputLine(line);
    }
    void end(int code = 0) {
        if (std::exchange(running, false))
            Finished({End::How::Exited, code, {}});
    }
};

} // namespace fakes
