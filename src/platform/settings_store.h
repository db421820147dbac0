#pragma once

namespace platform {

// Stores the program's settings between runs. Whoever changes one saves at once, so that the change
// survives a crash.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;
    // Writes the settings file. A failure is ignored silently.
    virtual void Salva() = 0;
};

} // namespace platform
