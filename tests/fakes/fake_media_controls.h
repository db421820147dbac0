#pragma once

#include "platform/media_controls.h"

#include <vector>

namespace fakes {

// A panel that keeps what it is shown; the test uses its commands.
struct FakeMediaControls : platform::MediaControls {
    platform::MediaCommands* commands = nullptr; // null while the panels are off
    platform::MediaFacts shown;
    std::vector<double> jumps; // s

    void begin(platform::MediaCommands& given) override { commands = &given; }
    void end() override { commands = nullptr; }
    void show(const platform::MediaFacts& facts) override { shown = facts; }
    void jumped(double seconds) override { jumps.push_back(seconds); }
};

} // namespace fakes
