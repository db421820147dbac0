#pragma once

#include "bookmarks/bookmark_window.h"
#include "platform/system.h"

namespace bookmarks {

// The commands of the player's menus that concern the bookmarks. The window of the marks stands beside the
// player and ends where the editor below it ends.
class BookmarkCommands {
public:
    static constexpr double sideGap = 60; // twips between the player and the window

    BookmarkCommands(player::Form1& form1, controls::Window& form2, Form3& form3, BookmarkWindow& window,
                     platform::System& system);

    // Shows the window, or hides it.
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
