// The recognisers that the program knows how to call.
#pragma once

#include "base/text.h"

#include <cstddef>
#include <span>
#include <string_view>

namespace drafts {

struct Recogniser {
    std::string_view option; // the name of its command line in the options file
    base::TextView name;     // empty for any other program
    base::TextView command;  // its own command line, see parseCommand
    base::TextView packages; // that bring it, by commas; empty where that is not known
    base::TextView install;  // the command that installs it; empty where there is none
};

inline constexpr std::size_t recogniserCount = 6;

// In the order of the list: the one that Debian has, then the common ones, then any other.
std::span<const Recogniser, recogniserCount> recognisers();

} // namespace drafts
