#include "hands/pedal.h"

#include <algorithm>

namespace hands {

namespace {

constexpr int repeatPeriod = 300;  // ms
constexpr int growthPeriod = 1000; // ms
constexpr int mostStepsAtOnce = 6; // after five seconds

Repeats repeatsOf(Command command) {
    return commands()[static_cast<std::size_t>(command)].repeats;
}

} // namespace

Pedal::Pedal(platform::EventLoop& loop) {
    for (std::size_t i = 0; i < commandCount; ++i)
        held_.emplace_back(loop).repeat.Tick = [this, i] { tick(static_cast<Command>(i)); };
}

void Pedal::press(Command command, Holder holder) {
    Held& held = of(command);
    const bool first = held.holders.empty();
    if (!held.holders.insert(holder).second || !first)
        return;
    held.ticks = 0;
    if (repeatsOf(command) != Repeats::Never)
        held.repeat.setInterval(repeatPeriod);
    Run(command);
}

void Pedal::release(Holder holder) {
    for (std::size_t i = 0; i < commandCount; ++i) {
        if (held_[i].holders.erase(holder) == 0 || !held_[i].holders.empty())
            continue;
        held_[i].repeat.setInterval(0);
        Released(static_cast<Command>(i));
    }
}

void Pedal::releaseAll() {
    for (Held& held : held_) {
        const std::set<Holder> holders = held.holders;
        for (const Holder& holder : holders)
            release(holder);
    }
}

void Pedal::tick(Command command) {
    Held& held = of(command);
    const int seconds = ++held.ticks * repeatPeriod / growthPeriod;
    const int steps = repeatsOf(command) == Repeats::Growing ? std::min(1 + seconds, mostStepsAtOnce) : 1;
    for (int i = 0; i < steps && !held.holders.empty(); ++i)
        Run(command);
}

} // namespace hands
