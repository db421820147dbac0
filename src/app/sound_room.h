#pragma once

#include "app/desktop.h"
#include "app/options_file.h"
#include "app/phrase_targets.h"
#include "app/transcript_menu.h"
#include "safety/notices.h"
#include "sound/open_map.h"

#include <functional>

namespace app {

// The phrases and the waveform of the open recording: the option of the steps back, and the commands.
class SoundRoom {
public:
    // The data that it uses.
    struct Parts {
        OptionsFile& options;
        safety::Notices& notices;
        PhraseTargets& targets;
    };

    SoundRoom(Desktop& desktop, player::Form1& form1, editor::Form2& editor, TranscriptMenu& menu,
              Parts parts);

    // The start is over.
    void start() { watch(); }
    // The exit goes.
    void leave();

    // The user changed an option.
    std::function<void()> OptionsChanged = [] {};

private:
    enum class Way : std::uint8_t { None, Back, On };

    bool isWanted() const;
    void watch();
    void changed();
    void go(Way way);
    void jump();
    void tell(lang::English sentence);

    player::Form1& form1_;
    editor::Form2& editor_;
    safety::Notices& notices_;
    PhraseTargets& targets_;
    controls::MenuItem mnuStepToPhrase_;
    controls::MenuItem mnuPhraseBack_;
    controls::MenuItem mnuPhraseOn_;
    sound::OpenMap map_;
    controls::Timer watch_;
    controls::Timer patience_; // of a jump that waits for the map
    base::Text asked_;         // the recording in which phrases were asked for
    Way way_ = Way::None;      // of the jump that waits
};

} // namespace app
