#pragma once

#include "controls/controls.h"
#include "lang/words.h"
#include "safety/notices.h"

namespace safety {

// The list of notices as data: a window that the user may resize. A row is a time, a tab and a sentence. Who
// shows it puts the controls in their places.
struct NoticesWindow : controls::Window {
    NoticesWindow() : Window("NoticesWindow", {0, 0, 8400, 4800}) {
        cmdClose.isDefault = cmdClose.isCancel = true;
        lblEmpty.alignment = controls::Alignment::Centre;
        lblEmpty.foreColor = controls::rgb(0x5B, 0x67, 0x7A);
    }

    controls::ListBox List1{"lstNotices", {}};
    controls::Label lblEmpty{"lblNoNotices", {}}; // in place of rows
    controls::CommandButton cmdClose{"cmdCloseNotices", {}};
};

// The command "What happened" with its window. The list follows what is told while it is open.
class WhatHappened {
public:
    WhatHappened(Notices& notices, lang::Words& words);

    // What the menu of the transcript gets from here.
    std::vector<controls::MenuItem*> commands() { return {&mnuWhatHappened_}; }

    // Builds the window and puts it on the screen, at its first use.
    std::function<void(NoticesWindow&)> Load = [](NoticesWindow&) {};

    NoticesWindow form;

private:
    void open();
    void fill();

    Notices& notices_;
    controls::MenuItem mnuWhatHappened_;
};

} // namespace safety
