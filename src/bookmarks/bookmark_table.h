#pragma once

#include "base/text.h"

#include <algorithm>
#include <array>
#include <vector>

namespace bookmarks {

// The bookmark lines of the open media file ("BookMark"). The first empty entry ends the list for every
// reader.
struct BookmarkTable {
    static constexpr std::size_t size = 501;

    std::array<base::Text, size> BookMark;

    bool empty() const { return BookMark[0].empty(); }
    // The lines before the first empty one.
    std::vector<base::Text> lines() const {
        return {BookMark.begin(), std::find(BookMark.begin(), BookMark.end(), base::Text())};
    }
    void SvuotaBookMark() { BookMark.fill({}); }
};

} // namespace bookmarks
