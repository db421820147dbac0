#pragma once

#include "hands/commands.h"
#include "hands/pedal_models.h"
#include "platform/pedals.h"

#include <optional>
#include <vector>

namespace hands {

// Which key and which pedals do each command. Stored as texts: a key as "Meta+F5", pedals as "left",
// "middle", "right", or "05f3:00ff:k256" with the code of a key or "b2" with a bit; separated by commas.
class Bindings {
public:
    Bindings();

    // The texts of a command, for the options file.
    base::Text& keyText(std::size_t command) { return keys_[command]; }
    base::Text& pedalText(std::size_t command) { return pedals_[command]; }
    // The texts were read: what makes no sense becomes the first choice again, and what stands at two
    // commands belongs to the first one.
    void tidy();

    const base::Text& key(Command command) const { return keys_[static_cast<std::size_t>(command)]; }
    // The pedals of a command, as they are stored.
    std::vector<base::Text> pedals(Command command) const;

    // Takes the key from the command that had it; an empty text for none.
    void setKey(Command command, const base::Text& key);
    // Adds the pedal to the command and takes it from the one that had it.
    void addPedal(Command command, const platform::PedalCode& pedal);
    void removePedals(Command command);

    std::optional<Command> commandOf(const platform::PedalCode& pedal) const;
    // The models with a pedal that has a command.
    std::vector<platform::WatchedModel> models() const;

private:
    void tidyKey(std::size_t command);
    void tidyPedals(std::size_t command);
    std::vector<base::Text> free(const std::vector<base::Text>& pedals, std::size_t command) const;

    std::array<base::Text, commandCount> keys_;
    std::array<base::Text, commandCount> pedals_;
};

// True for a combination that is not needed for typing: with Ctrl, Alt or Meta, or a function key.
bool isSafeKey(base::TextView key);

} // namespace hands
