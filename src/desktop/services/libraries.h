#pragma once

#include "desktop/services/lazy_player.h"
#include "outside/frm_informazioni.h"

#include <vector>

namespace desktop {

// The libraries that the program uses, with the versions present on this system. Libraries that are not
// installed are left out.
std::vector<outside::Library> librariesInUse(LazyPlayer& player);

} // namespace desktop
