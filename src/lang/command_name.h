#pragma once

#include "base/text.h"

namespace lang {

// The caption of a menu item without its mnemonic and the dots at its end: "&Keys..." is "Keys".
base::Text commandName(base::TextView caption);

} // namespace lang
