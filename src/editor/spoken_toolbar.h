#pragma once

#include "editor/editor_keys.h"
#include "editor/form2.h"
#include "lang/words.h"

namespace editor {

// Names, tool tips and states of the editor's toolbar, for the eye and for screen readers.
class SpokenToolbar {
public:
    SpokenToolbar(Form2& form, const EditorKeys& keys, lang::Words& words);

private:
    void describe();
    void nameControls();

    Form2& form_;
    const EditorKeys& keys_;
    lang::Words& words_;
};

} // namespace editor
