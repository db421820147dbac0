#pragma once

#include "controls/controls.h"
#include "lang/words.h"
#include "safety/notices.h"

namespace safety {

// The list of notices as data: a resizable window. A row holds a time, a tab and a sentence. The desktop
// positions the controls.
struct NoticesWindow : controls::Window {
    NoticesWindow() : Window("NoticesWindow", {0, 0, 8400, 4800}) {
        cmdClose.isDefault = cmdClose.isCancel = true;
        lblEmpty.alignment = controls::Alignment::Centre;
        lblEmpty.foreColor = controls::rgb(0x5B, 0x67, 0x7A);
    }

    controls::ListBox List1{"lstNotices", {}};
    controls::Label lblEmpty{"lblNoNotices", {}}; // shown instead of rows
    controls::CommandButton cmdClose{"cmdCloseNotices", {}};
};

// The command "What happened" and its window. While open, the list shows new notices immediately.
class WhatHappened {
public:
    WhatHappened(Notices& notices, lang::Words& words);

    // The commands for the transcript menu.
    std::vector<controls::MenuItem*> commands() { return {&mnuWhatHappened_}; }

    // Called once, before the window is shown for the first time: creates it on the screen.
    std::function<void(NoticesWindow&)> Load = [](NoticesWindow&) {};

    NoticesWindow form;

private:
    void open();
    void fill();

    Notices& notices_;
    const lang::Words& words_;
    controls::MenuItem mnuWhatHappened_;
};

} // namespace safety
