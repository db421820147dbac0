#pragma once

#include "platform/shell.h"

namespace desktop {

// The desktop's own opener of documents and addresses, and the sound settings of the desktops there are.
class QtShell : public platform::Shell {
public:
    void open(base::TextView target) override;
    // PipeWire's settings, or PulseAudio's, or those of the desktop that runs, or of another: the first that
    // is installed.
    void openSoundSettings() override;
};

} // namespace desktop
