#pragma once

#include "base/files.h"
#include "controls/controls.h"

#include <array>

namespace controls {

// A list of the last four files under a menu. The items themselves are the list: a caption that begins with
// "mnuRecent" is a free slot. A file of four lines keeps the captions, placeholders included.
class RecentFiles {
public:
    static constexpr std::size_t count = 4;

    RecentFiles(std::array<MenuItem*, count> items, MenuItem& separator, const base::TextFiles& files,
                base::Text path);

    // Reads the captions. `mark` says that a list before this one had entries, which is enough to show this
    // one's; the result is the mark for the next.
    bool load(bool mark);

    // Puts a path at the head and writes the file; a file that cannot be written is skipped in silence. An
    // entry that moves down into a free slot shows at the next update only, as the list has always done.
    void remember(base::TextView path);

private:
    static bool isFree(const MenuItem& item);

    std::array<MenuItem*, count> items_;
    MenuItem& separator_;
    const base::TextFiles& files_;
    base::Text path_;
};

} // namespace controls
