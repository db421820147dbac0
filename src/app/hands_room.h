#pragma once

#include "app/desktop.h"
#include "app/editor_room.h"
#include "app/options_file.h"
#include "app/transcript_menu.h"
#include "hands/keys_and_pedals.h"
#include "safety/notices.h"

#include <functional>

namespace app {

// What drives the player besides its own windows: foot pedals, keys from anywhere, panels of the desktop.
class HandsRoom {
public:
    HandsRoom(Desktop& desktop, player::Form1& form1, EditorRoom& editor, TranscriptMenu& menu,
              OptionsFile& options, lang::Words& words, safety::Notices& notices);

    const hands::Options& options() const { return options_; }

    // The start is over: what the options switch on begins.
    void start();
    // The exit goes.
    void leave();

    // The user changed an option.
    std::function<void()>& OptionsChanged() { return window_.OptionsChanged; }
    // The user has switched the desktop's panels on or off: options().panels.
    std::function<void()>& PanelsChanged() { return window_.PanelsChanged; }

private:
    hands::Options options_;
    hands::Bindings bindings_;
    hands::PlayerCommands commands_;
    hands::Hands hands_;
    hands::KeysAndPedals window_;
};

} // namespace app
