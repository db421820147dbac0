// The bookmark window as data: every control under its given name, with its initial position and state.
#pragma once

#include "controls/controls.h"
#include "controls/timer.h"

namespace bookmarks {

// The list of the bookmarks with a button to add and one to delete.
struct Form3 : controls::Window {
    explicit Form3(platform::EventLoop& loop) : Window("Form3", design), Timer1(loop) {
        List2.visible = false;
        Command1.caption = u"+";
        Command2.caption = u"-";
    }

    static constexpr controls::Box design{0, 0, 6000, 3180};

    controls::ListBox List1{"List1", {30, 30, 5745, 2370}};               // the keys, sorted
    controls::CommandButton Command2{"Command2", {4680, 2480, 525, 375}}; // delete
    controls::CommandButton Command1{"Command1", {5250, 2480, 525, 375}}; // add
    controls::ListBox List2{"List2", {30, 420, 5745, 1005}}; // the complete lines, sorted; never shown

    controls::Timer Timer1; // hides the window at the exit

    bool loaded = false; // the lists have been filled from the table
};

} // namespace bookmarks
