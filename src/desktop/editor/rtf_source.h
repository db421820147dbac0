// Sources of text as bytes and as units.
#pragma once

#include "base/code_page.h"
#include "base/text.h"

#include <string>
#include <string_view>

namespace desktop {

// True for a text that begins as RTF does.
bool isRtfSource(base::TextView source);

// The bytes of an RTF source that was handed on as text. A unit that is no ASCII becomes a symbol of RTF.
std::string rtfBytes(base::TextView source);

// The text of a file of plain text: UTF-16 or UTF-8 by its mark, in the page without one.
base::Text decodeText(std::string_view bytes, const base::CodePage& page);

} // namespace desktop
