#pragma once

#include "app/companion_windows.h"
#include "app/desktop.h"
#include "app/settings_file.h"
#include "player/form1.h"
#include "player/media_opener.h"
#include "player/media_session.h"
#include "player/position_display.h"
#include "player/preferences.h"
#include "player/transport.h"

namespace app {

// The player window with all rooms wired to it: its start, and the exit that ends the process.
class Workstation {
public:
    // Wires the rooms and runs Form_Initialize and Form_Load. `commandLine` holds one path in double quotes,
    // or nothing.
    Workstation(Desktop& desktop, const base::TextFiles& files, const base::ProgramFolder& folder,
                lang::LanguageTable& language, base::TextView commandLine);

    player::Form1& form1() { return form1_; }
    player::MediaSession& session() { return session_; }
    player::MediaOpener& opener() { return opener_; }

private:
    void Form_Initialize();
    void Form_Load(base::TextView commandLine);
    // The exit sequence; true when the user cancelled it.
    bool Form_Unload();
    void mnuEsci_Click();

    void placeWindows(const StartSettings& start);
    void showCompanions(const StartSettings& start);
    void showWithoutMedia();
    void openFromCommandLine(base::TextView commandLine);

    Desktop& desktop_;
    const base::TextFiles& files_;
    const base::ProgramFolder& folder_;
    lang::LanguageTable& Lingua;

    player::Preferences preferences_;
    player::Form1 form1_;
    CompanionWindows companions_;
    SettingsFile settings_;
    player::PositionDisplay display_;
    player::Transport transport_;
    player::MediaSession session_;
    player::MediaOpener opener_;
};

} // namespace app
