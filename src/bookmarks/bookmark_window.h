#pragma once

#include "bookmarks/bookmark_table.h"
#include "bookmarks/form3.h"
#include "dictation/input_dialog.h"
#include "player/form1.h"

namespace bookmarks {

// The routines of Form3. Both lists and the table hold the same bookmarks, but for a deletion, which leaves
// its line in List2 and loses the last one from the table; that is wanted as it stands. The next bookmark
// that is added goes by the table.
class BookmarkWindow {
public:
    BookmarkWindow(Form3& form, BookmarkTable& table, player::Form1& form1, dictation::InputDialog& dialog);

    // Fills the lists from the table. Whoever is about to use the lists asks for it; a window that is loaded
    // is left alone.
    void Form_Load();
    // Fills the lists of a loaded window once more, where they were emptied and the media stays in use.
    void refill();
    void Form_Resize();
    // Takes the window away with its lists, after the table took over their lines. A later load begins with
    // the design again.
    void unload();

    // Adds a bookmark; at the very end of the media the player starts from the beginning first.
    void Command1_Click();
    // Deletes the chosen one.
    void Command2_Click();
    // Jumps to the chosen one, unless it lies within the first second.
    void List1_DblClick();
    void Timer1_Timer();

    // The tips of the buttons.
    void applyLanguage();

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
