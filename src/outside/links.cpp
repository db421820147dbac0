#include "outside/links.h"

#include "outside/addresses.h"

#include <utility>

namespace outside {

Links::Links(player::Form1& form, controls::Window& form2, controls::Window& form3, platform::Shell& shell)
    : form_(form), Form2_(form2), Form3_(form3), shell_(shell) {
    form_.mnuAggiornamenti.Click = [this] { mnuAggiornamenti_Click(); };
    form_.mnuAggLingua.Click = [this] { mnuAggLingua_Click(); };
    form_.mnuFaiDonazione.Click = [this] { mnuFaiDonazione_Click(); };
    form_.mnuGuida.Click = [this] { mnuGuida_Click(); };
    form_.mnuVersioni.Click = [this] { mnuVersioni_Click(); };
    form_.mnuImpostaAudio.Click = [this] { mnuImpostaAudio_Click(); };
}

void Links::ApriPaginaWeb(const base::Text& target) {
    shell_.open(target);
    form_.windowState = controls::WindowState::Minimised;
    // True while the editor is hidden; a visible editor is minimised together with the player.
    if (form_.mnuMostraNascondi.caption.get() == form_.Lingua(86))
        Form2_.visible = false;
    if (form_.mnuBookMark.caption.get() == form_.Lingua(85))
        Form3_.visible = false;
}

void Links::mnuAggiornamenti_Click() {
    ApriPaginaWeb(base::Text(makersSite) + u"/quillmere.html");
}

void Links::mnuAggLingua_Click() {
    ApriPaginaWeb(base::Text(makersSite) + u"/quillmere-languages.html");
}

void Links::mnuFaiDonazione_Click() {
    ApriPaginaWeb(base::Text(makersSite) + u"/donazioni--donation.html");
}

void Links::mnuGuida_Click() {
    ApriPaginaWeb(
        form_.folder.files(u"Help-" + base::Text(guideLanguage(form_.Lingua.FileLingua)) + u".html"));
}

void Links::mnuVersioni_Click() {
    ApriPaginaWeb(form_.folder.path() + base::pathSeparator + u"Versioni.txt");
}

void Links::mnuImpostaAudio_Click() {
    shell_.openSoundSettings();
}

base::TextView guideLanguage(base::TextView fileLingua) {
    static constexpr std::pair<base::TextView, base::TextView> guides[] = {
        {u"italiano.lng", u"it"}, {u"russian.lng", u"ru"}, {u"polish.lng", u"pl"}};
    const base::Text name = base::lowered(fileLingua);
    for (const auto& [file, code] : guides) {
        if (name == file)
            return code;
    }
    return u"en";
}

} // namespace outside
