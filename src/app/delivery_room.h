#pragma once

#include "aids/delivery_commands.h"
#include "app/desktop.h"
#include "app/editor_room.h"
#include "app/options_file.h"
#include "app/spelling_room.h"
#include "app/transcript_menu.h"
#include "editor/doubts.h"

namespace app {

// The check before delivery: its command, its window, and what it needs of other rooms.
class DeliveryRoom {
public:
    // The rooms that it looks into.
    struct Rooms {
        player::Form1& form1;
        EditorRoom& editor;
        SpellingRoom& spelling;
        editor::Doubts& doubts;
    };

    DeliveryRoom(Desktop& desktop, Rooms rooms, TranscriptMenu& menu, OptionsFile& options,
                 lang::Words& words);

    // The exit goes.
    void leave() { commands_.leave(); }

private:
    aids::DeliveryOptions options_;
    aids::DeliveryCheck check_;
    aids::DeliveryCommands commands_;
};

} // namespace app
