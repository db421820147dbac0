#pragma once

#include "platform/shell.h"

#include <QString>

namespace desktop {

// The desktop's own opener of documents and addresses, and the sound settings of the desktops there are.
class QtShell : public platform::Shell {
public:
    void open(base::TextView target) override;
    // PipeWire's settings, or PulseAudio's, GNOME's, KDE's: the first that is installed.
    void openSoundSettings() override;

private:
    static void tell(const QString& message);
};

} // namespace desktop
