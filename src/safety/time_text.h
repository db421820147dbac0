#pragma once

#include "base/text.h"

#include <cstdint>

namespace safety {

// Day and time of the user's clock, in the order that sorts: "2024-05-03 14:07". `seconds` since 1970, UTC.
base::Text timeText(std::int64_t seconds);

} // namespace safety
