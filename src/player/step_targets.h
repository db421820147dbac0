#pragma once

#include <optional>

namespace player {

// Where a step back leads instead of simply back by its seconds. All positions are in seconds.
class StepTargets {
public:
    virtual ~StepTargets() = default;

    // The better target of a step from `from` to `to`; `to` itself if there is none. `heardFrom` is where the
    // playback began that this step ends, if it does: a target before it would repeat the same part forever.
    virtual double targetOf(double from, double to, std::optional<double> heardFrom) const = 0;
};

} // namespace player
