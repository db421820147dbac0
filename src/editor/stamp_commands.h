#pragma once

#include "editor/word_sound.h"
#include "moments/stamps.h"

namespace editor {

// Writes the moments of the text into it as time stamps, and removes stamps.
class StampCommands {
public:
    StampCommands(Form2& form, UndoRedo& text, const SoundOptions& options);

    std::vector<controls::MenuItem*> commands() { return {&mnuStamps}; }

    // The name of the speaker with whom a paragraph begins; empty for none.
    std::function<base::TextView(base::TextView paragraph)> SpeakerOf = [](base::TextView) {
        return base::TextView();
    };

private:
    enum class Places { Paragraphs, Seconds, Speakers };

    void insert(Places places);
    void remove();
    // The stamps to be inserted, of length 0, in order.
    std::vector<moments::Stamp> stampsFor(Places places, base::TextView text);

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
