#pragma once

#include "platform/shell.h"

namespace desktop {

// Opens documents and addresses with the desktop's own handlers, and the sound settings of any common
// desktop.
class QtShell : public platform::Shell {
public:
    void open(base::TextView target) override;
    // Opens the first installed of: PipeWire's settings, PulseAudio's, those of the running desktop, those of
    // another one.
    void openSoundSettings() override;
};

} // namespace desktop
