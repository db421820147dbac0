#pragma once

#include "platform/dialogs.h"
#include "platform/settings_store.h"
#include "player/companions.h"
#include "player/form1.h"

namespace player {

// The command that changes the language of the whole interface.
class LanguageMenu {
public:
    LanguageMenu(Form1& form, lang::LanguageTable& table, platform::Dialogs& dialogs, Companions& companions,
                 platform::SettingsStore& store);

    // Asks for a language file and loads the file of that name from the program's folder, wherever the chosen
    // one is. Rewrites the texts and saves the settings even after a cancel.
    void mnuLingua_Click();

private:
    Form1& form_;
    lang::LanguageTable& table_;
    platform::Dialogs& dialogs_;
    Companions& companions_;
    platform::SettingsStore& store_;
};

} // namespace player
