// RTF source that is passed on as text.
#pragma once

#include "base/text.h"

#include <string>

namespace desktop {

// True if the text begins like an RTF source.
bool isRtfSource(base::TextView source);

// Converts RTF source text to bytes. Units outside of ASCII become RTF Unicode escapes.
std::string rtfBytes(base::TextView source);

} // namespace desktop
