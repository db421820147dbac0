#pragma once

#include "player/step_targets.h"
#include "sound/phrase_step.h"
#include "sound/sound_map.h"

#include <functional>

namespace app {

// Sends steps back to the beginnings of phrases, while the option is on and the phrases are known.
class PhraseTargets : public player::StepTargets {
public:
    double targetOf(double from, double to, std::optional<double> heardFrom) const override {
        const sound::SoundMap* const map = isOn ? Map() : nullptr;
        return map ? sound::phraseStep(map->phrases, from, to, heardFrom) : to;
    }

    bool isOn = false; // the option
    // The map of the open recording; null while there is none.
    std::function<const sound::SoundMap*()> Map = [] { return nullptr; };
};

} // namespace app
