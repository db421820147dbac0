#pragma once

#include "app/desktop.h"
#include "bookmarks/bookmark_commands.h"
#include "bookmarks/bookmark_window.h"
#include "bookmarks/list_keys.h"
#include "bookmarks/media_bookmarks.h"

namespace app {

// The bookmarks of the open media file with their window and commands.
class BookmarkRoom {
public:
    BookmarkRoom(Desktop& desktop, const base::TextFiles& files, player::Form1& form1,
                 controls::Window& form2, dictation::InputDialog& dialog, lang::Words& words)
        : form3_(desktop.eventLoop()), media(table_, form3_, form1, files),
          window(form3_, table_, form1, dialog), commands_(form1, form2, form3_, window, desktop.system()),
          listKeys_(form3_, table_, window, form1.Lingua, dialog, words) {
        desktop.show(form3_);
    }

    bookmarks::Form3& form() { return form3_; }
    const bookmarks::Form3& form() const { return form3_; }

    bool empty() const { return table_.empty(); }
    // The bookmarks of the open media file, up to the first empty entry.
    std::vector<base::Text> lines() const { return table_.lines(); }
    // Reads and shows the bookmarks of the media file at this path. Returns false if it has no bookmark file.
    bool open(base::TextView mediaPath) {
        if (!media.hasFile(mediaPath))
            return false;
        window.unload();
        media.read(mediaPath);
        commands_.mnuBookMark_Click();
        return true;
    }

private:
    bookmarks::BookmarkTable table_;
    bookmarks::Form3 form3_;

public:
    bookmarks::MediaBookmarks media;
    bookmarks::BookmarkWindow window;

private:
    bookmarks::BookmarkCommands commands_;
    bookmarks::ListKeys listKeys_;
};

} // namespace app
