#pragma once

#include "app/desktop.h"
#include "app/editor_room.h"
#include "app/find_and_print.h"
#include "app/transcript_menu.h"
#include "outside/key_list.h"

namespace app {

// Collects the keys from the menus and from the table of the text's keys, and opens their list.
class KeysRoom {
public:
    KeysRoom(Desktop& desktop, player::Form1& form1, EditorRoom& editor, TranscriptMenu& menu,
             FindAndPrint& printing, lang::Words& words);

    // Called when the program ends.
    void leave() { list_.form.visible = false; }

private:
    std::vector<outside::KeyGroup> collect() const;

    player::Form1& form1_;
    EditorRoom& editor_;
    TranscriptMenu& menu_;
    lang::Words& words_;
    outside::KeyList list_;
};

} // namespace app
