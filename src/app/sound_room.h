#pragma once

#include "app/bookmark_room.h"
#include "app/desktop.h"
#include "app/options_file.h"
#include "app/phrase_targets.h"
#include "app/transcript_menu.h"
#include "safety/notices.h"
#include "sound/open_map.h"
#include "sound/sound_view.h"

#include <functional>

namespace app {

// The phrases and the waveform of the open recording: the option of the steps back, the commands, the window.
class SoundRoom {
public:
    // The data that it uses.
    struct Parts {
        OptionsFile& options;
        safety::Notices& notices;
        PhraseTargets& targets;
        const BookmarkRoom& bookmarks;
        lang::Words& words;
        std::vector<controls::MenuItem*> adjustments; // other commands about the sound
    };

    SoundRoom(Desktop& desktop, player::Form1& form1, editor::Form2& editor, TranscriptMenu& menu,
              Parts parts);

    controls::Window& window() { return form_; }

    // The start is over.
    void start();
    // The exit goes.
    void leave();

    // The user changed an option.
    std::function<void()> OptionsChanged = [] {};

private:
    enum class Way : std::uint8_t { None, Back, On };

    void wire();
    void openWindow();
    // The first place of the window, or the one that it had at the last exit.
    void placeWindow();
    void keepPlace();
    void focusText();
    void pressKey(const platform::KeyEvent& key);

    bool isWanted() const;
    void watch();
    void changed();
    void show();
    std::vector<sound::Flag> flags() const;
    void go(Way way);
    void jump();
    void seek(double seconds);
    void tell(lang::English sentence);

    Desktop& desktop_;
    player::Form1& form1_;
    editor::Form2& editor_;
    safety::Notices& notices_;
    PhraseTargets& targets_;
    const BookmarkRoom& bookmarks_;
    controls::MenuItem mnuSoundWindow_;
    controls::MenuItem mnuPhrases_;
    controls::MenuItem line_{"mnuPhrasesLine"};
    controls::MenuItem mnuStepToPhrase_;
    controls::MenuItem mnuPhraseBack_;
    controls::MenuItem mnuPhraseOn_;
    sound::OpenMap map_;
    sound::SoundWindow form_;
    sound::SoundView view_;
    controls::Timer watch_;
    controls::Timer patience_; // of a jump that waits for the map
    base::Text asked_;         // the recording in which phrases were asked for
    Way way_ = Way::None;      // of the jump that waits
    base::Text place_;         // option: left, top, width and height of the window, in twips
    bool isShown_ = false;     // option: the window is open
    bool isLoaded_ = false;    // it exists on the screen
};

} // namespace app
