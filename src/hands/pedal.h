#pragma once

#include "controls/timer.h"
#include "hands/commands.h"

#include <deque>
#include <functional>
#include <set>
#include <utility>

namespace hands {

// A key or pedal that is held: a device and a code on it.
using Holder = std::pair<int, int>;

// What becomes of presses: each runs its command once; held, a step repeats, and after a second each repeat
// is more steps at once. A command that several pedals hold ends with the last of them.
class Pedal {
public:
    explicit Pedal(platform::EventLoop& loop);

    void press(Command command, Holder holder);
    // A holder of no command is ignored.
    void release(Holder holder);
    // As if the user had let go of everything.
    void releaseAll();

    // Runs a command; set by the owner.
    std::function<void(Command)> Run = [](Command) {};
    // The last pedal of this command was released.
    std::function<void(Command)> Released = [](Command) {};

private:
    struct Held {
        explicit Held(platform::EventLoop& loop) : repeat(loop) {}

        std::set<Holder> holders;
        controls::Timer repeat;
        int ticks = 0;
    };

    void tick(Command command);
    Held& of(Command command) { return held_[static_cast<std::size_t>(command)]; }

    std::deque<Held> held_; // in the order of Command
};

} // namespace hands
