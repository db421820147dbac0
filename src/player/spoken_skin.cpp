#include "player/spoken_skin.h"

#include "base/numbers.h"

#include <utility>

namespace player {

using controls::Role;
using lang::operator""_en;

namespace {

constexpr int settles = 250;       // ms
constexpr double positionStep = 5; // seconds
constexpr base::TextView between = u" / ";

} // namespace

SpokenSkin::SpokenSkin(Form1& form, SeekBar& seekBar, VolumeBar& volumeBar, platform::EventLoop& loop,
                       lang::Words& words)
    : form_(form), words_(words), settled_(loop), speed_(form.Label7.caption) {
    describe(seekBar, volumeBar);
    settled_.Tick = [this] { announce(); };
    form_.cmdPlay.observe([this] {
        form_.cmdPlay.accessible.on = form_.isPlaying();
        announceLater();
    });
    form_.Label4.observe([this] { nameLogo(); });
    form_.mnuSmartPlay.observe([this] { form_.imgDetta.accessible.on = form_.mnuSmartPlay.checked.get(); });
    form_.Label7.observe([this] { announceLater(); });
    words_.follow([this] { nameControls(); });
}

void SpokenSkin::describe(SeekBar& seekBar, VolumeBar& volumeBar) {
    const std::pair<controls::Control*, Role> roles[] = {
        {&form_.VideoBox, Role::Button},   {&form_.Label2, Role::Slider},
        {&form_.Image1, Role::Slider},     {&form_.cmdPlay, Role::Toggle},
        {&form_.imgDetta, Role::Toggle},   {&form_.Label1, Role::Decoration},
        {&form_.Label3, Role::Decoration}, {&form_.Label5, Role::Decoration},
    };
    for (const auto& [control, role] : roles)
        control->accessible.role = role;
    form_.VideoBox.accessible.press = [this] { form_.VideoBox.DblClick(); };

    controls::Accessible& position = form_.Label2.accessible;
    position.value = [this] { return form_.WMP1.currentPosition(); };
    position.most = [this] { return form_.WMP1.duration(); };
    position.setValue = [&seekBar](double seconds) { seekBar.setPosition(seconds); };
    position.valueText = [this] { return positionText(); };
    position.step = positionStep;
    position.advances = true;

    controls::Accessible& volume = form_.Image1.accessible;
    volume.value = [this] { return base::val(form_.Image1.tag.get()); };
    volume.setValue = [&volumeBar](double percent) { volumeBar.setVolume(percent); };
    volume.valueText = [this] { return form_.Image1.tag.get() + u"%"; };
}

void SpokenSkin::nameControls() {
    const std::pair<controls::Control*, int> entries[] = {
        {&form_.Image1, 27}, {&form_.Image3, 3},    {&form_.cmdPlay, 7},  {&form_.cmdIndietro, 11},
        {&form_.cmdStop, 9}, {&form_.cmdAvanz, 10}, {&form_.cmdRec, 104}, {&form_.imgDetta, 124},
    };
    for (const auto& [control, entry] : entries)
        control->accessible.name = base::TogliAmp(form_.Lingua(entry));
    nameLogo();
    form_.Label2.accessible.name = words_(u"Position"_en);
    form_.Label7.accessible.name = words_(u"Playback speed"_en);
    form_.VideoBox.accessible.name = words_(u"Video in a window of its own"_en);
}

// The title covers the logo, which opens the about box.
void SpokenSkin::nameLogo() {
    const bool covered = form_.Label4.visible;
    form_.Image4.accessible.role = covered ? Role::Decoration : Role::Button;
    form_.Image4.accessible.name = covered ? base::Text() : base::TogliAmp(form_.Lingua(19));
}

base::Text SpokenSkin::positionText() const {
    const base::Text& shown = form_.Label2.caption;
    const auto middle = shown.find(between);
    if (middle == base::Text::npos)
        return shown;
    return words_(u"%1 of %2"_en, {base::TextView(shown).substr(0, middle),
                                   base::TextView(shown).substr(middle + between.size())});
}

void SpokenSkin::announceLater() {
    if (form_.isPlaying() != playing_ || form_.Label7.caption.get() != speed_)
        settled_.setInterval(settles);
}

void SpokenSkin::announce() {
    settled_.setInterval(0);
    if (std::exchange(speed_, form_.Label7.caption.get()) != form_.Label7.caption.get())
        form_.announce(speed_);
    const bool playing = form_.isPlaying();
    if (std::exchange(playing_, playing) != playing && !form_.mnuSmartPlay.checked)
        form_.announce(base::TogliAmp(form_.Lingua(playing ? 7 : 8)));
}

} // namespace player
