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

    // Asks for a language file. The file loaded is always the one of that name under the program folder; the
    // texts are written and the settings saved also after a cancel.
    void mnuLingua_Click();

private:
    Form1& form_;
    lang::LanguageTable& table_;
    platform::Dialogs& dialogs_;
    Companions& companions_;
    platform::SettingsStore& store_;
};

} // namespace player
