#pragma once

#include "controls/timer.h"
#include "editor/word_sound.h"

namespace editor {

// Marks the word that is heard, in the view alone, and scrolls along unless the user has just typed or
// scrolled.
class FollowSound {
public:
    FollowSound(Form2& form, WordSound& words, SoundOptions& options, platform::EventLoop& loop);

    std::vector<controls::MenuItem*> commands() { return {&mnuFollow}; }

    // The options were read: follows if they say so.
    void start();
    // The user typed.
    void typed() { quietSince_ = loop_.now(); }

    // True while the recording plays.
    std::function<bool()> Plays = [] { return false; };
    // The user changed the options.
    std::function<void()> OptionsChanged = [] {};

private:
    void follow(bool on);
    void tick();
    void mark(std::int32_t position, std::int32_t length);

    controls::MenuItem mnuFollow;

    Form2& form_;
    WordSound& words_;
    SoundOptions& options_;
    platform::EventLoop& loop_;
    controls::Timer timer_;
    platform::MarkedPart marked_;     // of no length: none
    std::int64_t quietSince_ = -3000; // ms; when the user last typed or scrolled
};

} // namespace editor
