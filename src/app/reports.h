#pragma once

#include "app/bookmark_room.h"
#include "app/desktop.h"
#include "app/editor_room.h"
#include "app/recorder_room.h"
#include "app/settings_file.h"
#include "controls/recent_files.h"
#include "player/form1.h"
#include "safety/notices.h"

namespace app {

// Tells by notices what the rules of the rooms keep silent, each at the window that it is about. What becomes
// of unsaved work is told by the safety room.
class Reports {
public:
    // The rooms that have something to tell; they outlive this object.
    struct Rooms {
        player::Form1& form1;
        EditorRoom& editor;
        BookmarkRoom& bookmarks;
        RecorderRoom& recorder;
        SettingsFile& settings;
        controls::RecentFiles& recentMedia;
    };

    Reports(safety::Notices& notices, Rooms rooms);

private:
    void followFiles(Rooms& rooms);
    void followPlayer(player::Form1& form1);
    void followRecorder(RecorderRoom& recorder);
    void tellRepair(const recorder::CutOffRecordings::Repair& repair, const controls::Window& window);

    safety::Notices& notices_;
};

} // namespace app
