#pragma once

#include "base/text.h"

#include <cstddef>
#include <vector>

namespace aids {

// The positions of brackets and quotes in a paragraph that are not closed, or not opened. The same sign may
// open a quote in one language and close it in another, so what is open decides. `next` is the paragraph
// behind it: a quote that goes on there begins again with its sign.
std::vector<std::size_t> unclosed(base::TextView paragraph, base::TextView next);

} // namespace aids
