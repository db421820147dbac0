#pragma once

namespace platform {

// Keeps the options of the program over its runs. Whoever changes an option asks at once for it to be saved,
// so that it outlives a crash.
class Options {
public:
    virtual ~Options() = default;
    // Writes the settings file. A failure is skipped in silence.
    virtual void Salva() = 0;
};

} // namespace platform
