#pragma once

#include "base/text.h"

#include <utility>
#include <vector>

namespace platform {

// The `filter` of a FileDialogRequest: each kind of file is its name and its patterns, "*.a;*.b".
inline base::Text fileFilter(const std::vector<std::pair<base::Text, base::Text>>& kinds) {
    base::Text filter;
    for (const auto& [name, patterns] : kinds)
        filter += (filter.empty() ? base::Text() : base::Text(1, u'\0')) + name + u'\0' + patterns;
    return filter;
}

} // namespace platform
