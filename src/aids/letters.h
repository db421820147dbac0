// Letters of every script, apart from the locale of the process.
#pragma once

#include "base/text.h"

namespace aids {

bool isLetter(char16_t unit);
bool isUpper(char16_t unit);
char16_t lower(char16_t unit);
char16_t upper(char16_t unit);

base::Text lower(base::TextView text);
base::Text upper(base::TextView text);
// The text with its first letter in upper case.
base::Text capitalised(base::TextView text);

} // namespace aids
