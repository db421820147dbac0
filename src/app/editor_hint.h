#pragma once

#include "editor/form2.h"
#include "lang/words.h"
#include "player/form1.h"

namespace app {

// Tells in the empty editor how to begin, as long as no recording is open.
class EditorHint {
public:
    EditorHint(player::Form1& form1, editor::Form2& form2, lang::Words& words);

private:
    void show();

    player::Form1& form1_;
    editor::Form2& form2_;
    lang::Words& words_;
};

} // namespace app
