#pragma once

#include "desktop/services/lazy_player.h"
#include "outside/frm_informazioni.h"

#include <vector>

namespace desktop {

// The libraries that the program runs on, each with the version that is in use here. One that is not
// installed is left out.
std::vector<outside::Library> librariesInUse(LazyPlayer& player);

} // namespace desktop
