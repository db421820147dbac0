#include "app/sound_room.h"

#include "base/numbers.h"
#include "bookmarks/bookmark_line.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace app {

using lang::operator""_en;

namespace {

constexpr int watchPeriod = 500; // ms
constexpr int patience = 1500;   // ms that a jump waits for the map

constexpr double gap = 30;          // twips between the window and what it stands beside
constexpr double leastWidth = 3000; // twips
constexpr double leastHeight = 1500;

constexpr int f5 = 116; // key codes
constexpr int arrowLeft = 37;
constexpr int arrowRight = 39;

} // namespace

SoundRoom::SoundRoom(Desktop& desktop, player::Form1& form1, editor::Form2& editor, TranscriptMenu& menu,
                     Parts parts)
    : desktop_(desktop), form1_(form1), editor_(editor), notices_(parts.notices), targets_(parts.targets),
      bookmarks_(parts.bookmarks), mnuSoundWindow_("mnuSoundWindow", u"Sound..."_en),
      mnuPhrases_("mnuPhrases", u"Ph&rases"_en),
      mnuStepToPhrase_("mnuStepToPhrase", u"Step to the start of the phrase"_en),
      mnuPhraseBack_("mnuPhraseBack", u"Phrase before"_en, "Alt+Left"),
      mnuPhraseOn_("mnuPhraseOn", u"Next phrase"_en, "Alt+Right"),
      map_(desktop.listener(), sound::MapFolder(form1.folder.files(u"Sound"))),
      view_(form_,
            {[this] { return form1_.WMP1.playState() == platform::PlayState::Playing; },
             [this] { return form1_.WMP1.currentPosition(); }, [this] { return form1_.WMP1.duration(); },
             [this](double seconds) { seek(seconds); }},
            parts.words, desktop.eventLoop()),
      watch_(desktop.eventLoop()), patience_(desktop.eventLoop()) {
    parts.options.tie("StepToPhrase", targets_.isOn);
    parts.options.tie("SoundWindow", place_);
    parts.options.tie("SoundWindowShown", isShown_);
    mnuPhrases_.items = {&mnuPhraseBack_, &mnuPhraseOn_, &line_, &mnuStepToPhrase_};
    std::vector<controls::MenuItem*> commands{&mnuSoundWindow_, &mnuPhrases_};
    commands.insert(commands.end(), parts.adjustments.begin(), parts.adjustments.end());
    menu.add(commands);
    wire();
}

void SoundRoom::wire() {
    mnuPhraseBack_.repeats = mnuPhraseOn_.repeats = true;
    mnuSoundWindow_.Click = [this] { openWindow(); };
    mnuPhraseBack_.Click = [this] { go(Way::Back); };
    mnuPhraseOn_.Click = [this] { go(Way::On); };
    mnuStepToPhrase_.Click = [this] {
        targets_.isOn = !targets_.isOn;
        watch();
        OptionsChanged();
    };
    targets_.Map = [this] { return map_.map().get(); };
    map_.Changed = [this] { changed(); };
    view_.Clicked = [this] { focusText(); };
    view_.Shown = [this] {
        const bool changed = isShown_ != form_.visible;
        keepPlace();
        watch();
        if (changed) // not at the start, which restores it
            OptionsChanged();
    };
    form_.KeyDown = [this](const platform::KeyEvent& key) { pressKey(key); };
    editor_.observe([this] { form_.Wave.isDark = editor_.darkPage.get(); });
    watch_.Tick = [this] { watch(); };
    patience_.Tick = [this] {
        patience_.setInterval(0);
        way_ = Way::None;
        tell(u"The phrases of this recording are still being found."_en);
    };
}

void SoundRoom::start() {
    form_.Wave.isDark = editor_.darkPage.get();
    if (isShown_)
        openWindow();
    watch();
}

void SoundRoom::leave() {
    targets_.Map = [] { return nullptr; };
    if (form_.visible) {
        keepPlace();
        OptionsChanged();
        form_.visible = false;
    }
    watch_.setInterval(0);
    patience_.setInterval(0);
    map_.want({});
}

// The window stands beside the player, and the user goes on typing. The command brings an open one to front.
void SoundRoom::openWindow() {
    if (form_.visible)
        return form_.setFocus();
    if (!std::exchange(isLoaded_, true)) {
        placeWindow();
        desktop_.show(form_);
    }
    view_.open();
    focusText();
}

void SoundRoom::placeWindow() {
    form_.icon = editor_.icon.get();
    // Nor below the bookmarks, which end where the editor ends.
    const double left =
        std::max(form1_.left + form1_.width, editor_.visible ? editor_.left + editor_.width : 0) + gap;
    const controls::Box screen = form1_.screen.areaOf(form1_);
    const double room = screen.left + screen.width - left;
    if (room >= leastWidth) {
        form_.left = left;
        form_.top = form1_.top.get();
        form_.width = std::min(form_.width.get(), room);
    } else {
        form_.left = editor_.left.get();
        form_.top = editor_.top + editor_.height + gap;
    }
    form_.height = form1_.height.get();
    controls::Property<double>* const values[] = {&form_.left, &form_.top, &form_.width, &form_.height};
    base::TextView rest = place_;
    for (controls::Property<double>* const value : values) {
        const base::TextView word = rest.substr(0, rest.find(u' '));
        if (!base::isNumber(word))
            break;
        *value = base::val(word);
        rest.remove_prefix(std::min(word.size() + 1, rest.size()));
    }
    const controls::Box area = form1_.screen.areaOf(form_);
    form_.width = std::clamp(form_.width.get(), leastWidth, std::max(area.width, leastWidth));
    form_.height = std::clamp(form_.height.get(), leastHeight, std::max(area.height, leastHeight));
    form_.left =
        std::clamp(form_.left.get(), area.left, std::max(area.left + area.width - form_.width, area.left));
    form_.top =
        std::clamp(form_.top.get(), area.top, std::max(area.top + area.height - form_.height, area.top));
}

void SoundRoom::keepPlace() {
    isShown_ = form_.visible;
    place_.clear();
    for (const double twips : {form_.left.get(), form_.top.get(), form_.width.get(), form_.height.get()})
        place_ += (place_.empty() ? u"" : u" ") + base::numberText(twips);
}

void SoundRoom::focusText() {
    if (!editor_.visible)
        return form1_.setFocus();
    editor_.setFocus();
    editor_.RTB.SetFocus();
}

// The player's keys work here, too.
void SoundRoom::pressKey(const platform::KeyEvent& key) {
    const auto run = [](const std::function<void()>& command) {
        if (command)
            command();
    };
    if (key.keyCode == platform::escapeKey)
        view_.close();
    else if (key.keyCode == f5)
        run(form1_.cmdPlay.Click);
    else if (key.keyCode == f5 + 1)
        run(form1_.cmdIndietro.Click);
    else if (key.keyCode == f5 + 2)
        run(form1_.cmdAvanz.Click);
    else if (key.shift == platform::altKey && (key.keyCode == arrowLeft || key.keyCode == arrowRight))
        go(key.keyCode == arrowLeft ? Way::Back : Way::On);
}

bool SoundRoom::isWanted() const {
    return targets_.isOn || form_.visible || (!asked_.empty() && asked_ == form1_.WMP1.URL());
}

void SoundRoom::watch() {
    mnuStepToPhrase_.checked = targets_.isOn;
    map_.want(isWanted() ? form1_.WMP1.URL() : base::Text());
    const int period = isWanted() ? watchPeriod : 0;
    if (watch_.interval() != period)
        watch_.setInterval(period);
    show();
}

void SoundRoom::show() {
    using State = sound::SoundView::State;
    if (!form_.visible)
        return;
    const State state = map_.map()                  ? State::Shown
                        : form1_.WMP1.URL().empty() ? State::NoRecording
                        : map_.isMaking()           ? State::Reading
                                                    : State::NoSound;
    view_.show(state, map_.map(), flags(), map_.madeUpTo());
}

std::vector<sound::Flag> SoundRoom::flags() const {
    std::vector<sound::Flag> flags;
    for (const base::Text& line : bookmarks_.lines())
        flags.push_back({bookmarks::secondsOf(line), 0});
    std::ranges::sort(flags, {}, &sound::Flag::seconds);
    for (std::size_t i = 0; i < flags.size(); ++i)
        flags[i].number = static_cast<int>(i) + 1;
    return flags;
}

void SoundRoom::changed() {
    show();
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
    const auto& map = map_.map();
    if (!map || map->phrases.all().empty())
        return tell(u"No phrases were found in this recording."_en);
    const auto now = static_cast<std::int32_t>(std::lround(form1_.WMP1.currentPosition() * 1000));
    const auto target = way == Way::Back ? map->phrases.before(now) : map->phrases.after(now);
    if (!target && way == Way::On)
        return;
    seek(target.value_or(0) / 1000.0);
}

void SoundRoom::seek(double seconds) {
    if (form1_.WMP1.URL().empty())
        return;
    form1_.WMP1.setCurrentPosition(seconds);
    form1_.Timer1.Tick();
}

void SoundRoom::tell(lang::English sentence) {
    notices_.tell(sentence, {}, &editor_);
}

} // namespace app
