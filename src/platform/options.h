#pragma once

namespace platform {

// Stores the program's options between runs. Whoever changes an option saves at once, so that the change
// survives a crash.
class Options {
public:
    virtual ~Options() = default;
    // Writes the settings file. A failure is ignored silently.
    virtual void Salva() = 0;
};

} // namespace platform
