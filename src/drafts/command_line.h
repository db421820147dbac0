// The command line of a recogniser as the user writes it. No shell reads it.
#pragma once

#include "base/text.h"

#include <cstdint>
#include <vector>

namespace drafts {

enum class CommandFault : std::uint8_t { None, Empty, OpenQuote, NoInput };

struct CommandLine {
    std::vector<base::Text> words; // the program and its arguments
    CommandFault fault = CommandFault::None;
    bool hasOutput = false; // "%o" stands in it
};

// Divides a line into words as a shell does: at blanks, except between quotes or behind a backslash. "~/" at
// the head of a word is the folder `home`. NoInput: "%i" is missing.
CommandLine parseCommand(base::TextView line, base::TextView home);

// The words with the paths of the recording for "%i" and of the draft for "%o"; "%%" is a percent sign.
std::vector<base::Text> filledIn(const CommandLine& command, base::TextView input, base::TextView output);

} // namespace drafts
