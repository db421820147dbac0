#pragma once

#include "app/bookmark_room.h"
#include "app/editor_room.h"
#include "app/recorder_room.h"
#include "controls/controls.h"
#include "controls/recent_files.h"
#include "lang/words.h"
#include "player/companions.h"
#include "player/form1.h"

namespace app {

// The windows and rooms beside the player: where they are placed, and what the player asks of them.
class CompanionWindows : public player::Companions {
public:
    CompanionWindows(player::Form1& form1, controls::RecentFiles& recentMedia, EditorRoom& editor,
                     BookmarkRoom& bookmarks, RecorderRoom& recorder, lang::LanguageTable& language,
                     lang::Words& words)
        : form1_(form1), recentMedia_(recentMedia), editor_(editor), bookmarks_(bookmarks),
          recorder_(recorder), Lingua(language), words_(words) {}

    void TornaAllEditor() override;
    void PosizionaEditor() override;
    // The real size of the player's frame is known: moves the windows that were placed by the estimate
    // (twips).
    void followFrame(double wider, double higher);
    void applyLanguage() override;
    void enableTimeStamp(bool enabled) override { editor_.form().mnuTimeStamp.enabled = enabled; }
    void leaveBookmarks() override { bookmarks_.media.leave(); }
    bool openBookmarks(base::TextView mediaPath) override { return bookmarks_.open(mediaPath); }
    void unloadForm3() override { bookmarks_.window.unload(); }
    void rememberMedia(base::TextView path) override { recentMedia_.remember(path); }
    bool isRecordingTo(base::TextView path) override { return recorder_.isRecordingTo(path); }
    void wholeRecording(base::TextView path, std::function<void(const base::Text&)> play) override {
        recorder_.cutOff().wholeRecording(path, std::move(play));
    }

private:
    player::Form1& form1_;
    controls::RecentFiles& recentMedia_;
    EditorRoom& editor_;
    BookmarkRoom& bookmarks_;
    RecorderRoom& recorder_;
    lang::LanguageTable& Lingua;
    lang::Words& words_;
};

} // namespace app
