#pragma once

#include "base/files.h"
#include "base/program_folder.h"
#include "bookmarks/bookmark_table.h"
#include "bookmarks/form3.h"
#include "player/form1.h"

#include <functional>
#include <vector>

namespace bookmarks {

// The bookmarks of a media between its file and the table. The file is called after the media alone, so two
// media of one name share it. A failure of the disk is skipped in silence and leaves the old file.
class MediaBookmarks {
public:
    MediaBookmarks(BookmarkTable& table, Form3& form3, const player::Form1& form1,
                   const base::TextFiles& files);

    // Writes the bookmarks of the media in use and empties the lists of the window. Where there are none the
    // file stays as it is, so that those deleted to the last one come back. A file that could not be read is
    // read again: its lines stay in front of the new ones, or, when that fails too, the file as it is.
    void SalvaBookMark();
    // Saves the bookmarks, if there are any, and forgets them: the next media begins with empty lists.
    void leave();

    // True when the media at this path has a bookmark file.
    bool hasFile(base::TextView mediaPath) const;
    // Reads the lines of that file into the table, as many as it holds.
    void read(base::TextView mediaPath);

    // Replaces the bookmark file of the media at this path by these lines, which an earlier run of the
    // program could not save; false when it holds them already. Throws Failure.
    bool bringBack(base::TextView mediaPath, const std::vector<base::Text>& lines);

    // The file is replaced by so many lines next, or was read with more lines than the table holds.
    std::function<void(const base::Text& file, std::size_t lines)> Replacing = [](const base::Text&,
                                                                                  std::size_t) {};
    // A save failed, with the system's words; the rule passes over it.
    std::function<void(const base::Text& reason)> Failed = [](const base::Text&) {};

private:
    base::Text fileOf(base::TextView mediaPath) const;

    BookmarkTable& table_;
    Form3& form3_;
    const player::Form1& form1_;
    const base::TextFiles& files_;
    base::Text unread_; // bookmark file of the media in use, when it could not be read
};

} // namespace bookmarks
