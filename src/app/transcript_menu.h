#pragma once

#include "controls/controls.h"
#include "editor/form2.h"
#include "lang/words.h"

#include <deque>
#include <vector>

namespace app {

// The menu at the right end of the editor's menu bar. Each room hands it the commands that it adds; their
// captions are English texts, shown in the language of the program.
class TranscriptMenu {
public:
    TranscriptMenu(editor::Form2& editor, lang::Words& words);

    // Puts the commands of a room behind those that are there, below a line. The commands outlive the menu.
    // Before the editor's window is built: a menu asks for its commands once.
    void add(const std::vector<controls::MenuItem*>& commands);

private:
    void translate(controls::MenuItem& item);

    lang::Words& words_;
    controls::MenuItem mnuTranscript_;
    std::deque<controls::MenuItem> lines_;
};

} // namespace app
