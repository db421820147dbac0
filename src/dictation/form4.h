// The input dialog as data: every control under its given name, with its initial position, caption and state.
#pragma once

#include "controls/controls.h"

namespace dictation {

// The only input dialog: one line of text. It is modal; timers keep running.
struct Form4 : controls::Window {
    static constexpr double clientWidth = 6405;  // twips
    static constexpr double clientHeight = 1575; // twips

    Form4() : Window("Form4", {0, 0, clientWidth, clientHeight}) {
        // The player may be topmost, and a dialog behind it would look like a hang.
        topmost = true;
        Command1.isDefault = true;
        Label1.labels = &Text1;
        Label1.foreColor = controls::rgb(0x1F, 0x2A, 0x44);
    }

    // Called before the dialog is positioned: creates the window if necessary and sets its size. Set by the
    // desktop.
    std::function<void()> Load = [] {};

    controls::Picture Image1{"Image1", {-420, -180, 7245, 2055}};         // background
    controls::Label Label1{"Label1", {330, 210, 3825, 720}};              // prompt
    controls::TextBox Text1{"Text1", {330, 910, 4005, 375}};              // value
    controls::CommandButton Command1{"Command1", {4740, 250, 1425, 585}}; // OK
    controls::CommandButton Command2{"Command2", {4740, 870, 1425, 435}}; // Cancel
};

} // namespace dictation
