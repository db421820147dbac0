// The port to the system's other programs.
#pragma once

#include "base/text.h"

namespace platform {

// Starts programs without waiting for them. The shell itself reports a failure to the user, in a non-modal
// box.
class Shell {
public:
    Shell() = default;
    Shell(const Shell&) = delete;
    Shell& operator=(const Shell&) = delete;
    virtual ~Shell() = default;

    // Opens a document (a path) or a web address in the program that the system has registered for it.
    virtual void open(base::TextView target) = 0;

    // Opens the system's own sound settings.
    virtual void openSoundSettings() = 0;
};

} // namespace platform
