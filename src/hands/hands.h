#pragma once

#include "hands/bindings.h"
#include "hands/options.h"
#include "hands/pedal.h"
#include "hands/player_commands.h"
#include "platform/global_keys.h"
#include "platform/pedals.h"

#include <array>
#include <functional>

namespace hands {

// Keeps pedals and keys from anywhere at work, as the options say, and passes what they do to the commands.
class Hands {
public:
    Hands(platform::EventLoop& loop, platform::Pedals& pedals, platform::GlobalKeys& keys,
          const Options& options, Bindings& bindings, PlayerCommands& commands);

    // Options or bindings have changed. What is held counts as released.
    void apply();
    // While the user chooses a key, none is taken.
    void restKeys(bool rest);
    // The next pedal that is pressed is passed to `learned` instead of doing its command. Until then, every
    // device is read.
    void learn(std::function<void(const platform::PedalCode&)> learned);
    void stopLearning();
    bool isLearning() const { return learned_ != nullptr; }
    // The exit goes.
    void leave();

    // Whether the key of this command is this program's; Held if it has none.
    platform::KeyHold keyHold(Command command) const { return holds_[static_cast<std::size_t>(command)]; }
    std::vector<platform::PedalDevice> devices() const { return pedals_.devices(); }
    // Why keys or pedals cannot be used at all, in the system's words; empty if they can.
    base::Text keysFailure() const { return keys_.failure(); }
    base::Text pedalsFailure() const { return pedals_.failure(); }

    // Keys or devices are others than before.
    std::function<void()> StateChanged = [] {};

private:
    void takeKeys();
    void readHolds(const std::vector<platform::KeyHold>& holds);
    void watchPedals();
    void move(int device, const platform::PedalCode& pedal, bool pressed);

    platform::Pedals& pedals_;
    platform::GlobalKeys& keys_;
    const Options& options_;
    Bindings& bindings_;
    Pedal pedal_;
    std::vector<Command> taken_; // in the order of the port's list
    std::array<platform::KeyHold, commandCount> holds_{};
    std::function<void(const platform::PedalCode&)> learned_;
    bool left_ = false;
};

} // namespace hands
