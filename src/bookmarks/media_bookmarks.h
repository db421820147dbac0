#pragma once

#include "base/files.h"
#include "base/program_folder.h"
#include "bookmarks/bookmark_table.h"
#include "bookmarks/form3.h"
#include "player/form1.h"

#include <functional>
#include <vector>

namespace bookmarks {

// Loads and saves the bookmarks of one media file. The file is named after the media's file name only, so
// media of the same name share it; a name that is too long is shortened. Disk errors are ignored silently and
// leave the old file.
class MediaBookmarks {
public:
    MediaBookmarks(BookmarkTable& table, Form3& form3, const player::Form1& form1,
                   const base::TextFiles& files);

    // Writes the bookmarks of the open media and empties the window's lists. Without bookmarks the file stays
    // unchanged, so a deletion of all bookmarks is not saved. If the file could not be read, it is read
    // again: its lines go before the new ones, or, if reading fails again, nothing is written.
    void SalvaBookMark();
    // Saves the bookmarks, if there are any, and clears them: the next media starts with empty lists.
    void leave();

    // True if the media file at this path has a bookmark file.
    bool hasFile(base::TextView mediaPath) const;
    // Reads the lines of that file into the table, as many as fit.
    void read(base::TextView mediaPath);

    // Replaces the bookmark file of the media file at this path by these lines, which an earlier run could
    // not save. Returns false if the file already holds them. Throws Failure.
    bool bringBack(base::TextView mediaPath, const std::vector<base::Text>& lines);

    // Called before the file is replaced by this many lines, and when it has more lines than the table holds.
    std::function<void(const base::Text& file, std::size_t lines)> Replacing = [](const base::Text&,
                                                                                  std::size_t) {};
    // A save failed; `reason` is the system's message. The program continues as if it had succeeded.
    std::function<void(const base::Text& reason)> Failed = [](const base::Text&) {};

private:
    base::Text fileOf(base::TextView mediaPath) const;

    BookmarkTable& table_;
    Form3& form3_;
    const player::Form1& form1_;
    const base::TextFiles& files_;
    base::Text unread_; // bookmark file of the open media that could not be read
};

} // namespace bookmarks
