#pragma once

#include "app/aids_room.h"
#include "app/companion_windows.h"
#include "app/dark_page.h"
#include "app/delivery_room.h"
#include "app/desktop.h"
#include "app/draft_room.h"
#include "app/editor_hint.h"
#include "app/editor_room.h"
#include "app/find_and_print.h"
#include "app/focus_round.h"
#include "app/hands_room.h"
#include "app/input_room.h"
#include "app/keys_room.h"
#include "app/moment_room.h"
#include "app/options_file.h"
#include "app/outside_room.h"
#include "app/phrase_targets.h"
#include "app/recorder_room.h"
#include "app/reports.h"
#include "app/safety_room.h"
#include "app/safety_windows.h"
#include "app/settings_file.h"
#include "app/sound_room.h"
#include "app/speaker_room.h"
#include "app/spelling_room.h"
#include "app/transcript_menu.h"
#include "controls/recent_files.h"
#include "dictation/smart_play.h"
#include "dictation/timed_cycle.h"
#include "editor/spoken_toolbar.h"
#include "player/file_drop.h"
#include "player/form1.h"
#include "player/language_menu.h"
#include "player/media_opener.h"
#include "player/media_session.h"
#include "player/player_window.h"
#include "player/position_display.h"
#include "player/seek_bar.h"
#include "player/settings.h"
#include "player/skin.h"
#include "player/sound_commands.h"
#include "player/speed.h"
#include "player/spoken_skin.h"
#include "player/transport.h"
#include "player/video_picture.h"
#include "player/volume_bar.h"
#include "safety/options.h"

namespace app {

// The player window with all rooms wired to it: the program's start, and the exit that ends the process.
class Workstation {
public:
    // Wires the rooms and runs Form_Initialize and Form_Load. `commandLine` is empty or one path in double
    // quotes.
    Workstation(Desktop& desktop, const base::TextFiles& files, const base::ProgramFolder& folder,
                lang::LanguageTable& language, base::TextView commandLine);

    player::Form1& form1() { return form1_; }
    player::MediaSession& session() { return session_; }
    EditorRoom& editor() { return editor_; }
    CompanionWindows& companions() { return companions_; }
    RecorderRoom& recorder() { return recorder_; }
    SafetyRoom& safety() { return safety_; }
    // Opens a transcript that was named at the start, in the visible editor.
    void openDocument(base::TextView path);
    // Ends the process without questions when the session ends. No work is lost: the next start restores it.
    void endSession();
    // Saves like endSession but keeps running, since the session's end may be cancelled. Does nothing after
    // the exit, which has saved everything.
    void keepAll();
    safety::Notices& notices() { return notices_; }
    player::MediaOpener& opener() { return opener_; }
    // True if the process ends right after the start, without having shown the player.
    bool ends() const { return ends_; }

private:
    void wireSafety();
    void Form_Initialize();
    void Form_Load(base::TextView commandLine);
    // The exit sequence. Returns true if the user cancelled it.
    bool Form_Unload();
    // Asks about unsaved text. Returns true if the answer cancels the exit.
    bool keepsRunning();
    void mnuEsci_Click();

    void placeWindows(const StartSettings& start);
    void showCompanions(const StartSettings& start);
    void showWithoutMedia();
    void showHandPointer();

    Desktop& desktop_;
    const base::ProgramFolder& folder_;
    lang::LanguageTable& Lingua;
    lang::Words words_;
    OptionsFile options_;
    safety::Options safetyOptions_;
    safety::Notices notices_;

    player::Settings settings_;
    player::Form1 form1_;
    controls::RecentFiles recentMedia_;
    EditorRoom editor_;
    FindAndPrint findAndPrint_;
    InputRoom input_;
    BookmarkRoom bookmarks_;
    RecorderRoom recorder_;
    CompanionWindows companions_;
    SettingsFile settingsFile_;
    player::PositionDisplay display_;
    PhraseTargets phraseTargets_;
    player::Transport transport_;
    player::MediaSession session_;
    player::MediaOpener opener_;
    player::SeekBar seekBar_;
    player::VolumeBar volumeBar_;
    player::Speed speed_;
    player::Skin skin_;
    player::SpokenSkin spokenSkin_;
    editor::SpokenToolbar spokenToolbar_;
    FocusRound focusRound_;
    player::VideoPicture videoPicture_;
    player::PlayerWindow window_;
    player::FileDrop drop_;
    player::LanguageMenu languageMenu_;
    dictation::SmartPlay smartPlay_;
    dictation::TimedCycle cycle_;
    InputJobs inputJobs_;
    OutsideRoom outside_;
    SafetyRoom safety_;
    Reports reports_;
    TranscriptMenu transcriptMenu_;
    player::SoundCommands soundCommands_;
    MomentRoom moments_;
    SafetyWindows safetyWindows_;
    DraftRoom drafts_;
    SpeakerRoom speakers_;
    SoundRoom sound_;
    SpellingRoom spelling_;
    AidsRoom aids_;
    DeliveryRoom delivery_;
    DarkPage darkPage_;
    HandsRoom hands_;
    KeysRoom keys_;
    EditorHint editorHint_;
    bool ends_ = false;
    bool left_ = false; // the exit can no longer be cancelled
};

} // namespace app
