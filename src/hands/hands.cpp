#include "hands/hands.h"

#include <utility>

namespace hands {

namespace {

constexpr int keyboard = -1; // as a device

// One number for each pedal of a device.
int codeOf(const platform::PedalCode& pedal) {
    return pedal.code * 2 + (pedal.isBit ? 1 : 0);
}

} // namespace

Hands::Hands(platform::EventLoop& loop, platform::Pedals& pedals, platform::GlobalKeys& keys,
             const Options& options, Bindings& bindings, PlayerCommands& commands)
    : pedals_(pedals), keys_(keys), options_(options), bindings_(bindings), pedal_(loop) {
    pedal_.Run = [&commands](Command command) { commands.run(command); };
    pedal_.Released = [&commands](Command command) {
        if (command == Command::PlayWhileHeld)
            commands.release();
    };
    pedals_.Moved = [this](int device, const platform::PedalCode& pedal, bool pressed) {
        move(device, pedal, pressed);
    };
    pedals_.DevicesChanged = [this] { StateChanged(); };
    keys_.Moved = [this](std::size_t index, bool pressed) {
        if (!pressed)
            pedal_.release({keyboard, static_cast<int>(index)});
        else if (index < taken_.size())
            pedal_.press(taken_[index], {keyboard, static_cast<int>(index)});
    };
    keys_.Changed = [this](const std::vector<platform::KeyHold>& holds) {
        readHolds(holds);
        StateChanged();
    };
}

void Hands::apply() {
    if (left_)
        return;
    pedal_.releaseAll();
    takeKeys();
    watchPedals();
    StateChanged();
}

// A port that is never used loads nothing.
void Hands::takeKeys() {
    if (!options_.keys && taken_.empty())
        return;
    taken_.clear();
    std::vector<base::Text> combinations;
    for (std::size_t i = 0; options_.keys && i < commandCount; ++i) {
        const auto command = static_cast<Command>(i);
        if (bindings_.key(command).empty())
            continue;
        taken_.push_back(command);
        combinations.push_back(bindings_.key(command));
    }
    readHolds(keys_.take(combinations));
}

void Hands::readHolds(const std::vector<platform::KeyHold>& holds) {
    holds_.fill(platform::KeyHold::Held);
    for (std::size_t i = 0; i < holds.size() && i < taken_.size(); ++i)
        holds_[static_cast<std::size_t>(taken_[i])] = holds[i];
}

void Hands::watchPedals() {
    if (options_.pedals || learned_)
        pedals_.watch(bindings_.models(), learned_ != nullptr);
    else
        pedals_.stop();
}

void Hands::restKeys(bool rest) {
    if (left_ || !options_.keys)
        return;
    if (!rest)
        return takeKeys();
    pedal_.releaseAll();
    keys_.take({});
}

void Hands::learn(std::function<void(const platform::PedalCode&)> learned) {
    learned_ = std::move(learned);
    pedal_.releaseAll();
    watchPedals();
}

void Hands::stopLearning() {
    if (std::exchange(learned_, nullptr))
        watchPedals();
}

void Hands::leave() {
    left_ = true;
    learned_ = nullptr;
    // A pedal that is held must not pause a player that the exit has stopped.
    pedal_.Released = [](Command) {};
    pedal_.releaseAll();
    pedals_.stop();
    if (!taken_.empty())
        keys_.take({});
}

void Hands::move(int device, const platform::PedalCode& pedal, bool pressed) {
    if (left_)
        return;
    const Holder holder{device, codeOf(pedal)};
    if (!pressed)
        return pedal_.release(holder);
    if (learned_ && !canBePedal(pedal))
        return;
    if (learned_) {
        const auto learned = std::exchange(learned_, nullptr);
        return learned(pedal); // which applies the new binding
    }
    if (const auto command = bindings_.commandOf(pedal))
        pedal_.press(*command, holder);
}

} // namespace hands
