#pragma once

#include "controls/controls.h"
#include "editor/form2.h"
#include "lang/words.h"

#include <cstddef>
#include <deque>
#include <vector>

namespace app {

// The rightmost menu of the editor's menu bar. Each room adds its commands; their captions are English texts,
// shown in the program's language.
class TranscriptMenu {
public:
    TranscriptMenu(editor::Form2& editor, lang::Words& words);

    // Appends a room's commands below a separator. The commands must outlive the menu. Call it before the
    // editor's window is created, which reads a menu's commands only once.
    void add(const std::vector<controls::MenuItem*>& commands);

    // The same for a command that stays at the end, behind what is added later.
    void addLast(controls::MenuItem& command);

    const controls::MenuItem& menu() const { return mnuTranscript_; }

private:
    void translate(controls::MenuItem& item);

    lang::Words& words_;
    controls::MenuItem mnuTranscript_;
    std::deque<controls::MenuItem> lines_;
    std::size_t last_ = 0; // number of items that stay at the end
};

} // namespace app
