#pragma once

#include "outside/addresses.h"
#include "outside/links.h"
#include "platform/dialogs.h"
#include "platform/internet.h"
#include "platform/system.h"

namespace outside {

// The update check at the start, and its mark in the menu.
class UpdateCheck {
public:
    // `source` is the address of the version file.
    UpdateCheck(player::Form1& form, Links& links, platform::Internet& internet, platform::Dialogs& dialogs,
                platform::System& system, std::string source = std::string(versionFile));

    // Asks the user when there is a newer version, and is silent in every other case. On Yes it opens the
    // program's page and ends the process, without anything being saved: true then.
    bool ControllaAggiornamenti();

    // The change counts from the next start on.
    void mnuCheckUpdateStartup_Click();

private:
    player::Form1& form_;
    Links& links_;
    platform::Internet& internet_;
    platform::Dialogs& dialogs_;
    platform::System& system_;
    std::string source_;
};

} // namespace outside
