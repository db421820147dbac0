#pragma once

#include "editor/word_sound.h"

namespace editor {

// Writes the moments of the text into it as time stamps, and removes stamps.
class StampCommands {
public:
    StampCommands(Form2& form, UndoRedo& text, const SoundOptions& options);

    std::vector<controls::MenuItem*> commands() { return {&mnuStamps}; }

private:
    enum class Places { Paragraphs, Seconds, Speakers };

    void insert(Places places);
    void remove();

    controls::MenuItem mnuStamps;
    controls::MenuItem mnuStampParagraphs;
    controls::MenuItem mnuStampSeconds;
    controls::MenuItem mnuStampSpeakers;
    controls::MenuItem mnuStampLine{"mnuStampLine"};
    controls::MenuItem mnuStampRemove;

    Form2& form_;
    UndoRedo& text_;
    const SoundOptions& options_;
};

} // namespace editor
