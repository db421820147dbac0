#pragma once

#include "app/options_file.h"
#include "app/transcript_menu.h"
#include "editor/form2.h"

#include <functional>

namespace app {

// The command that makes the page of the editor dark or white. The document's own colours stay as they are.
class DarkPage {
public:
    DarkPage(editor::Form2& editor, OptionsFile& options, TranscriptMenu& menu);

    // The choice has changed and is to be saved.
    std::function<void()> Changed = [] {};

private:
    void apply();

    editor::Form2& editor_;
    controls::MenuItem mnuDarkPage_;
    bool isDark_ = false;
};

} // namespace app
