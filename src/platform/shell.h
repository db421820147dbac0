// The system's way to its other programs.
#pragma once

#include "base/text.h"

namespace platform {

// Starts programs and waits for none of them. What cannot be started is told to the user by the shell itself,
// in a box that holds nothing up.
class Shell {
public:
    Shell() = default;
    Shell(const Shell&) = delete;
    Shell& operator=(const Shell&) = delete;
    virtual ~Shell() = default;

    // Opens a document (a path) or a web address in the program that the system has for it.
    virtual void open(base::TextView target) = 0;

    // Opens the system's own sound settings.
    virtual void openSoundSettings() = 0;
};

} // namespace platform
