#pragma once

#include "bookmarks/bookmark_table.h"
#include "bookmarks/form3.h"
#include "dictation/input_dialog.h"
#include "player/form1.h"

namespace bookmarks {

// The routines of Form3. Both lists and the table hold the same bookmarks, except after a deletion: the
// deleted line stays in List2, and the last line is lost from the table. Settled behaviour. The next added
// bookmark rebuilds the lists from the table.
class BookmarkWindow {
public:
    BookmarkWindow(Form3& form, BookmarkTable& table, player::Form1& form1, dictation::InputDialog& dialog);

    // Fills the lists from the table. Every user of the lists calls it first; it does nothing if the window
    // is loaded.
    void Form_Load();
    // Refills the lists of a loaded window that were emptied while the media stays open.
    void refill();
    void Form_Resize();
    // Hides the window and empties its lists, after copying their lines to the table. The next load starts
    // with the design position and size.
    void unload();

    // Adds a bookmark. At the very end of the media, playback restarts from the beginning first.
    void Command1_Click();
    // Deletes the selected bookmark.
    void Command2_Click();
    // Jumps to the selected bookmark, unless it lies within the first second.
    void List1_DblClick();
    void Timer1_Timer();

    // Sets the tool tips of the buttons.
    void applyLanguage();

    // The table has no place for this bookmark, the last one in the order of the list.
    std::function<void(const base::Text& key)> Dropped = [](const base::Text&) {};

private:
    void Form_Unload();
    bool addNamed(const base::Text& name);
    void fillLists();
    void copyLines(int count);

    Form3& form_;
    BookmarkTable& table_;
    player::Form1& form1_;
    dictation::InputDialog& dialog_;
};

} // namespace bookmarks
