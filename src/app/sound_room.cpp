#include "app/sound_room.h"

#include <cmath>
#include <utility>

namespace app {

using lang::operator""_en;

namespace {

constexpr int watchPeriod = 500; // ms
constexpr int patience = 1500;   // ms that a jump waits for the map

} // namespace

SoundRoom::SoundRoom(Desktop& desktop, player::Form1& form1, editor::Form2& editor, TranscriptMenu& menu,
                     Parts parts)
    : form1_(form1), editor_(editor), notices_(parts.notices), targets_(parts.targets),
      mnuStepToPhrase_("mnuStepToPhrase", u"Step to the start of the phrase"_en),
      mnuPhraseBack_("mnuPhraseBack", u"Phrase before"_en, "Alt+Left"),
      mnuPhraseOn_("mnuPhraseOn", u"Next phrase"_en, "Alt+Right"),
      map_(desktop.listener(), sound::MapFolder(form1.folder.files(u"Sound"))), watch_(desktop.eventLoop()),
      patience_(desktop.eventLoop()) {
    parts.options.tie("StepToPhrase", targets_.isOn);
    menu.add({&mnuPhraseBack_, &mnuPhraseOn_, &mnuStepToPhrase_});
    mnuPhraseBack_.repeats = mnuPhraseOn_.repeats = true;
    mnuPhraseBack_.Click = [this] { go(Way::Back); };
    mnuPhraseOn_.Click = [this] { go(Way::On); };
    mnuStepToPhrase_.Click = [this] {
        targets_.isOn = !targets_.isOn;
        watch();
        OptionsChanged();
    };
    targets_.Map = [this] { return map_.map(); };
    map_.Changed = [this] { changed(); };
    watch_.Tick = [this] { watch(); };
    patience_.Tick = [this] {
        patience_.setInterval(0);
        way_ = Way::None;
        tell(u"The phrases of this recording are still being found."_en);
    };
}

void SoundRoom::leave() {
    targets_.Map = [] { return nullptr; };
    watch_.setInterval(0);
    patience_.setInterval(0);
    map_.want({});
}

bool SoundRoom::isWanted() const {
    return targets_.isOn || (!asked_.empty() && asked_ == form1_.WMP1.URL());
}

void SoundRoom::watch() {
    mnuStepToPhrase_.checked = targets_.isOn;
    map_.want(isWanted() ? form1_.WMP1.URL() : base::Text());
    const int period = isWanted() ? watchPeriod : 0;
    if (watch_.interval() != period)
        watch_.setInterval(period);
}

void SoundRoom::changed() {
    if (way_ != Way::None && !map_.isMaking())
        jump();
}

void SoundRoom::go(Way way) {
    asked_ = form1_.WMP1.URL();
    if (asked_.empty())
        return;
    watch();
    way_ = way;
    if (map_.isMaking())
        patience_.setInterval(patience);
    else
        jump();
}

void SoundRoom::jump() {
    patience_.setInterval(0);
    const Way way = std::exchange(way_, Way::None);
    const sound::SoundMap* const map = map_.map();
    if (!map || map->phrases.all().empty())
        return tell(u"No phrases were found in this recording."_en);
    const auto now = static_cast<std::int32_t>(std::lround(form1_.WMP1.currentPosition() * 1000));
    const auto target = way == Way::Back ? map->phrases.before(now) : map->phrases.after(now);
    if (!target && way == Way::On)
        return;
    form1_.WMP1.setCurrentPosition(target.value_or(0) / 1000.0);
    form1_.Timer1.Tick();
}

void SoundRoom::tell(lang::English sentence) {
    notices_.tell(sentence, {}, &editor_);
}

} // namespace app
