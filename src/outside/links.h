#pragma once

#include "platform/shell.h"
#include "player/form1.h"

namespace outside {

// The commands that lead out of the program: its web pages, the guide, the list of versions, the sound
// settings.
class Links {
public:
    Links(player::Form1& form, controls::Window& form2, controls::Window& form3, platform::Shell& shell);

    void mnuAggiornamenti_Click();
    void mnuAggLingua_Click();
    void mnuFaiDonazione_Click();
    void mnuGuida_Click();
    void mnuVersioni_Click();
    void mnuImpostaAudio_Click();

private:
    // Opens the target and makes room for its window: minimises the player and hides the bookmarks.
    void ApriPaginaWeb(const base::Text& target);

    player::Form1& form_;
    controls::Window& Form2_;
    controls::Window& Form3_;
    platform::Shell& shell_;
};

// The language of the guide for a language file: "it", "ru", "pl", or "en" for all others.
base::TextView guideLanguage(base::TextView fileLingua);

} // namespace outside
