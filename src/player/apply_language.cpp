#include "player/apply_language.h"

#include "base/numbers.h"

#include <optional>
#include <utility>

namespace player {

namespace {

// Parses a truth value: "true", "false" or a number; none for any other text.
std::optional<bool> asBoolean(base::TextView text) {
    const base::Text word = base::lowered(base::trimmed(text));
    if (word == u"true" || word == u"false")
        return word == u"true";
    return base::isNumber(word) ? std::optional(base::val(word) != 0) : std::nullopt;
}

void applyMenus(Form1& form) {
    const std::pair<controls::MenuItem*, int> captions[] = {
        {&form.mnuFile, 2},
        {&form.mnuApri, 3},
        {&form.mnuChiudi, 4},
        {&form.mnuEsci, 5},
        {&form.mnuRiproduzione, 6},
        {&form.mnuPlay, 7},
        {&form.mnuStop, 9},
        {&form.mnuAvanti, 10},
        {&form.mnuIndietro, 11},
        {&form.mnuVai, 12},
        {&form.mnuDiminuisciVelocità, 129},
        {&form.mnuAumentaVelocità, 130},
        {&form.mnuAddBM, 93},
        {&form.mnuBMsuccessivo, 94},
        {&form.mnuBMprecedente, 95},
        {&form.mnuVisualizza, 87},
        {&form.mnuOpzioni, 13},
        {&form.mnuImpostaAudio, 81},
        {&form.mnuSecIndietro, 30},
        {&form.mnuSalto, 14},
        {&form.mnuSmartPlay, 124},
        {&form.mnuNoPlayOnWrite, 135},
        {&form.mnuTitoloCompleto, 80},
        {&form.mnuPrimoPiano, 103},
        {&form.mnuAggLingua, 101},
        {&form.mnuDonazioni, 74},
        {&form.mnuFaiDonazione, 17},
        {&form.mnuGuida, 16},
        {&form.mnuVersioni, 102},
        {&form.mnuAggiornamenti, 18},
        {&form.mnuInfo, 19},
    };
    for (const auto& [item, entry] : captions)
        item->caption = form.Lingua(entry);
    form.mnuLingua.caption = u"&" + form.Lingua(15);
    form.mnuRegistra.caption = form.Lingua(104) + u"...";
    form.mnuTempoPlay.caption = form.Lingua(125) + u"...";
    form.mnuTempoPause.caption = form.Lingua(126) + u"...";
    // The item keeps its caption in every language. Its entry only states whether it is enabled; a text that
    // is not a truth value changes nothing.
    if (const auto offered = asBoolean(form.Lingua(133)))
        form.mnuCheckUpdateStartup.enabled = *offered;
}

void applyButtons(Form1& form) {
    form.cmdPlay.tag = form.Lingua(7);
    form.cmdAvanz.tag = form.Lingua(10) + u" ->";
    form.cmdIndietro.tag = u"<- " + form.Lingua(11);
    const std::pair<controls::Control*, int> tips[] = {
        {&form.Image3, 3},   {&form.cmdIndietro, 76}, {&form.cmdAvanz, 77},
        {&form.cmdPlay, 78}, {&form.cmdStop, 79},     {&form.imgDetta, 124},
    };
    for (const auto& [button, entry] : tips)
        button->toolTip = lang::toolTip(form.Lingua(entry));
}

} // namespace

void ApplicaLingua(Form1& form, Companions& companions) {
    applyMenus(form);
    applyButtons(form);
    companions.applyLanguage();
}

} // namespace player
