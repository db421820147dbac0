#pragma once

#include "bookmarks/form3.h"
#include "editor/form2.h"
#include "player/form1.h"

namespace app {

// F10 leads the keyboard focus from the text to the toolbar, the player's buttons, the bookmarks, the
// waveform and back. Windows that are hidden are left out.
class FocusRound {
public:
    FocusRound(player::Form1& player, editor::Form2& editor, bookmarks::Form3& marks)
        : player_(player), editor_(editor), marks_(marks) {
        editor_.NextGroup = [this] { player_.focusControls(); };
        player_.NextGroup = [this] { marks_.visible ? marks_.List1.setFocus() : focusLast(); };
        marks_.NextGroup = [this] { focusLast(); };
    }

    // The group behind the bookmarks.
    void addLast(controls::Window& last) {
        last_ = &last;
        last.NextGroup = [this] { focusText(); };
    }

private:
    void focusLast() { last_ && last_->visible ? last_->focusControls() : focusText(); }
    void focusText() {
        if (!editor_.visible)
            return player_.focusControls();
        editor_.setFocus();
        editor_.RTB.SetFocus();
    }

    player::Form1& player_;
    editor::Form2& editor_;
    bookmarks::Form3& marks_;
    controls::Window* last_ = nullptr;
};

} // namespace app
