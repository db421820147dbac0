#pragma once

#include "bookmarks/bookmark_window.h"
#include "platform/system.h"

namespace bookmarks {

// The player's menu commands for bookmarks. The bookmark window is placed beside the player and ends at the
// editor's right edge.
class BookmarkCommands {
public:
    static constexpr double sideGap = 60; // twips between the player and the window

    BookmarkCommands(player::Form1& form1, controls::Window& form2, Form3& form3, BookmarkWindow& window,
                     platform::System& system);

    // Shows the window if it is hidden, and vice versa.
    void mnuBookMark_Click();
    void mnuAddBM_Click();
    void mnuBMsuccessivo_Click();
    void mnuBMprecedente_Click();

private:
    void placeBesidePlayer();
    void placeAcross();
    void choose(int index);

    player::Form1& form1_;
    controls::Window& form2_;
    Form3& form3_;
    BookmarkWindow& window_;
    platform::System& system_;
};

} // namespace bookmarks
