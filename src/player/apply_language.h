#pragma once

#include "player/companions.h"
#include "player/form1.h"

namespace player {

// Writes the language table to the player window and, through `companions`, to the windows around it. Resets
// the run state to the word for play, whatever the player is doing.
void ApplicaLingua(Form1& form, Companions& companions);

} // namespace player
