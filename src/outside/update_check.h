#pragma once

#include "outside/addresses.h"
#include "outside/links.h"
#include "platform/dialogs.h"
#include "platform/internet.h"
#include "platform/system.h"

namespace outside {

// The update check at the start, and its check mark in the menu.
class UpdateCheck {
public:
    // `source` is the URL of the version file.
    UpdateCheck(player::Form1& form, Links& links, platform::Internet& internet, platform::Dialogs& dialogs,
                platform::System& system, std::string source = std::string(versionFile));

    // Asks the user if there is a newer version; does nothing visible otherwise. On Yes it opens the
    // program's page, ends the process without saving anything and returns true.
    bool ControllaAggiornamenti();

    // Toggles the check; takes effect at the next start.
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
