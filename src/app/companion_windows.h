#pragma once

#include "app/bookmark_room.h"
#include "controls/controls.h"
#include "controls/recent_files.h"
#include "player/companions.h"
#include "player/form1.h"

namespace app {

// The windows beside the player, as far as they are there: where they stand, and what the player asks of
// them. What a room that is not built yet would answer is left undone, and no command offers it.
class CompanionWindows : public player::Companions {
public:
    CompanionWindows(player::Form1& form1, controls::RecentFiles& recentMedia, platform::EventLoop& loop)
        : Form3(loop), form1_(form1), recentMedia_(recentMedia) {}

    // The room that answers for the bookmarks, from before the first question on.
    void answerBy(BookmarkRoom& bookmarks) { bookmarks_ = &bookmarks; }

    controls::Window Form2{"Form2", {0, 0, 10920, 5205}}; // editor
    bookmarks::Form3 Form3;

    void TornaAllEditor() override;
    void PosizionaEditor() override;
    void applyLanguage() override;
    void enableTimeStamp(bool) override {}
    void leaveBookmarks() override { bookmarks_->media.leave(); }
    bool openBookmarks(base::TextView mediaPath) override { return bookmarks_->open(mediaPath); }
    void unloadForm3() override { bookmarks_->window.unload(); }
    void rememberMedia(base::TextView path) override { recentMedia_.remember(path); }
    bool isRecordingTo(base::TextView) override { return false; }

private:
    player::Form1& form1_;
    controls::RecentFiles& recentMedia_;
    BookmarkRoom* bookmarks_ = nullptr;
};

} // namespace app
