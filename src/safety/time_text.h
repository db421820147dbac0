#pragma once

#include "base/text.h"

#include <cstdint>

namespace safety {

// Formats seconds since 1970 (UTC) as local date and time, in a sortable form: "2024-05-03 14:07".
base::Text timeText(std::int64_t seconds);

} // namespace safety
