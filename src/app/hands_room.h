#pragma once

#include "app/desktop.h"
#include "app/editor_room.h"
#include "app/options_file.h"
#include "app/transcript_menu.h"
#include "hands/keys_and_pedals.h"
#include "hands/panels.h"
#include "safety/notices.h"

#include <functional>

namespace app {

// What drives the player besides its own windows: foot pedals, keys from anywhere, panels of the desktop.
class HandsRoom {
public:
    HandsRoom(Desktop& desktop, const hands::Panels::Player& player, EditorRoom& editor, TranscriptMenu& menu,
              OptionsFile& options, lang::Words& words, safety::Notices& notices);

    // The start is over: what the options switch on begins.
    void start();
    // The exit goes.
    void leave();

    // The user changed an option.
    std::function<void()>& OptionsChanged() { return window_.OptionsChanged; }

private:
    hands::Options options_;
    hands::Bindings bindings_;
    hands::PlayerCommands commands_;
    hands::Hands hands_;
    hands::Panels panels_;
    hands::KeysAndPedals window_;
};

} // namespace app
