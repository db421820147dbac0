#pragma once

#include "editor/form2.h"
#include "editor/undo_redo.h"

#include <functional>
#include <optional>
#include <vector>

namespace editor {

// User options for hearing words and for stamps.
struct SoundOptions {
    int leadMs = 300;      // the sound begins so much before the word
    int stampSeconds = 30; // between two stamps at even distances
    bool follow = false;   // the word that is heard is marked
};

// Between the words and the sound: hears a word, takes the caret to the sound, gives a word its moment.
class WordSound {
public:
    // A part of the text with a time: a word, or a stamp.
    struct Part {
        std::int32_t position = 0;
        std::int32_t length = 0;
        std::int32_t ms = 0;
        bool isStamp = false;
    };

    WordSound(Form2& form, UndoRedo& text, const SoundOptions& options);

    std::vector<controls::MenuItem*> commands() { return {&mnuHear, &mnuToSound, &mnuSetMoment}; }

    // The word or stamp at this place; nothing where it has no time, not even between others.
    std::optional<Part> partAt(std::int32_t position);
    // The word that is heard at that time.
    std::optional<Part> heardPart(std::int32_t ms);

    // Plays the open recording from there, in ms; false without one.
    std::function<bool(std::int32_t ms)> PlayFrom = [](std::int32_t) { return false; };
    // True while a recording is open.
    std::function<bool()> CanPlay = [] { return false; };
    // The place that is heard, in ms; nothing without a recording.
    std::function<std::optional<std::int32_t>()> Heard = [] { return std::nullopt; };
    // Called when a word is to be heard that belongs to another recording than the open one.
    std::function<void()> ToldOther = [] {};
    // Called after a word has got a moment.
    std::function<void()> MomentSet = [] {};

private:
    // Letters around a place, as long as any word.
    struct Letters {
        std::int32_t begin = 0;
        base::Text text;
    };

    bool hear(std::int32_t position);
    bool isHeardByClick(std::int32_t position);
    void toSound();
    void setMoment();
    Letters around(std::int32_t position);

    controls::MenuItem mnuHear;
    controls::MenuItem mnuToSound;
    controls::MenuItem mnuSetMoment;

    Form2& form_;
    UndoRedo& text_;
    const SoundOptions& options_;
};

} // namespace editor
