// RTF that is handed on as text.
#pragma once

#include "base/text.h"

#include <string>

namespace desktop {

// True for a text that begins as RTF does.
bool isRtfSource(base::TextView source);

// The bytes of an RTF source. A unit that is no ASCII becomes a symbol of RTF.
std::string rtfBytes(base::TextView source);

} // namespace desktop
