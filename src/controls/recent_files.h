#pragma once

#include "base/files.h"
#include "controls/controls.h"

#include <array>
#include <functional>

namespace controls {

// A menu's list of the last four files. The menu items themselves are the list: a caption that starts with
// "mnuRecent" is a free slot. The file stores the four captions, free slots included.
class RecentFiles {
public:
    static constexpr std::size_t count = 4;

    RecentFiles(std::array<MenuItem*, count> items, MenuItem& separator, const base::TextFiles& files,
                base::Text path);

    // Reads the captions. `mark` tells whether an earlier list had entries, which also makes this list
    // visible. Returns the mark for the next list.
    bool load(bool mark);

    // Moves a path to the top and writes the file; a write error is ignored silently. An entry that moves
    // down into a free slot becomes visible only at the next update. Settled behaviour.
    void remember(base::TextView path);

    // The file could not be written, for this reason.
    std::function<void(const base::Text& reason)> Failed = [](const base::Text&) {};

private:
    static bool isFree(const MenuItem& item);

    std::array<MenuItem*, count> items_;
    MenuItem& separator_;
    const base::TextFiles& files_;
    base::Text path_;
};

} // namespace controls
