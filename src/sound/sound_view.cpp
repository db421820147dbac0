#include "sound/sound_view.h"

#include "base/numbers.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace sound {

using lang::operator""_en;

namespace {

constexpr int frame = 16;                // ms between two positions during playback
constexpr int idle = 100;                // ms otherwise
constexpr std::int64_t usersTurn = 3000; // ms after a zoom or a drag in which the view stays

constexpr double finest = 1.0 / 400;  // seconds of a pixel
constexpr double coarsest = 1.0 / 25; // at least; a long recording fits the window
constexpr double notch = 1.25;        // zoom of a notch of the wheel
constexpr double anchor = 0.4;        // of the width, where the position stays during playback
constexpr double margin = 0.15;       // of the width, where the position enters
constexpr double glide = 2;           // the view moves so many times as fast as the sound at most
constexpr double leastDrag = 60;      // twips; less is a click
constexpr double jump = 1;            // seconds that no playback moves at once
constexpr double arrowStep = 5;       // seconds of an arrow key, as on the player's bar

} // namespace

SoundView::SoundView(SoundWindow& form, Player player, lang::Words& words, platform::EventLoop& loop)
    : form_(form), part_(form.Wave.part), player_(std::move(player)), words_(words), loop_(loop),
      timer_(loop), quietSince_(-usersTurn) {
    describe();
    timer_.Tick = [this] { tick(); };
    form_.Wave.Wheel = [this](double x, double notches, bool sideways) {
        quietSince_ = loop_.now();
        if (sideways)
            moveTo(part_.begin - notches * form_.Wave.pixels() * part_.perPixel / 10);
        else
            zoomAround(x / controls::twipsPerPixel, notches);
    };
    form_.Wave.Zoom = [this](double notches) { zoom(notches); };
    form_.Wave.MouseDown = [this](const auto& event) { press(event); };
    form_.Wave.MouseMove = [this](const auto& event) { drag(event); };
    form_.Wave.MouseUp = [this](const auto& event) { release(event); };
    form_.Resize = [this] { moveTo(part_.begin); };
    form_.Unload = [this] {
        close();
        return false;
    };
}

void SoundView::describe() {
    controls::Accessible& slider = form_.Wave.accessible;
    slider.value = player_.position;
    slider.most = [this] { return duration(); };
    slider.setValue = player_.seek;
    slider.valueText = [this] {
        return words_(u"%1 of %2"_en, {base::clockText(player_.position()), base::clockText(duration())});
    };
    slider.step = arrowStep;
    slider.advances = true;
    words_.follow([this] { translate(); });
}

void SoundView::translate() {
    form_.caption = words_(u"Sound"_en);
    form_.Wave.accessible.name = words_(u"Position"_en);
    form_.Wave.toolTip = words_(u"Click: go there. Wheel: zoom. Drag: move."_en);
    showState();
}

void SoundView::showState() {
    form_.Wave.visible = state_ == State::Shown;
    form_.lblState.visible = state_ != State::Shown;
    if (state_ == State::NoRecording)
        form_.lblState.caption = words_(u"No recording is open."_en);
    else if (state_ == State::Reading)
        form_.lblState.caption =
            words_(u"The sound is being read: %1"_en, {base::numberText(percent_) + u" %"});
    else if (state_ == State::NoSound)
        form_.lblState.caption = words_(u"The sound of this recording cannot be shown."_en);
}

void SoundView::open() {
    form_.visible = true;
    timer_.setInterval(idle);
    Shown();
}

void SoundView::close() {
    form_.visible = false;
    timer_.setInterval(0);
    Shown();
}

void SoundView::show(State state, std::shared_ptr<const SoundMap> map, std::vector<Flag> flags,
                     double readUpTo) {
    const bool isNew = map && map != form_.Wave.map.get();
    form_.Wave.map = std::move(map);
    form_.Wave.flags = std::move(flags);
    const double whole = player_.duration();
    percent_ = whole > 0 ? static_cast<int>(std::min(readUpTo / whole, 1.0) * 100) : 0;
    state_ = state;
    showState();
    if (isNew) {
        part_.position = player_.position();
        moveTo(part_.position - margin * form_.Wave.pixels() * part_.perPixel);
    }
}

double SoundView::duration() const {
    const auto& map = form_.Wave.map.get();
    const double columns = map ? static_cast<double>(map->waveform.level(0).size()) : 0;
    return std::max(player_.duration(), columns * Waveform::columnMs / 1000);
}

void SoundView::tick() {
    if (state_ != State::Shown)
        return;
    const bool plays = player_.plays();
    if (const int period = plays ? frame : idle; timer_.interval() != period)
        timer_.setInterval(period);
    const double before = part_.position;
    const double now = player_.position();
    if (now == before)
        return;
    follow(before, now, plays);
    part_.position = now;
}

void SoundView::follow(double before, double now, bool plays) {
    const bool jumped = std::abs(now - before) > jump;
    if (pressed_ || (!jumped && loop_.now() - quietSince_ < usersTurn))
        return;
    const double width = form_.Wave.pixels() * part_.perPixel;
    if (now < part_.begin || now > part_.begin + width)
        return moveTo(now - margin * width);
    const double ahead = now - anchor * width - part_.begin;
    if (plays && !jumped && ahead > 0)
        moveTo(part_.begin + std::min(ahead, glide * std::abs(now - before)));
}

void SoundView::moveTo(double begin) {
    const double most = duration() - form_.Wave.pixels() * part_.perPixel;
    part_.begin = std::clamp(begin, 0.0, std::max(most, 0.0));
}

void SoundView::zoom(double notches) {
    const double x = (part_.position - part_.begin) / part_.perPixel;
    zoomAround(std::clamp(x, 0.0, form_.Wave.pixels()), notches);
}

void SoundView::zoomAround(double x, double notches) {
    const double there = part_.begin + x * part_.perPixel;
    const double most = std::max(duration() / std::max(form_.Wave.pixels(), 1.0), coarsest);
    const double perPixel = std::clamp(part_.perPixel * std::pow(notch, -notches), finest, most);
    part_.perPixel = perPixel;
    moveTo(there - x * perPixel);
}

void SoundView::press(const controls::MouseEvent& event) {
    if (event.button != 1)
        return;
    pressed_ = true;
    dragged_ = false;
    pressedAt_ = event.x;
    pressedBegin_ = part_.begin;
}

void SoundView::drag(const controls::MouseEvent& event) {
    if (!pressed_ || (event.button & 1) == 0)
        return;
    dragged_ = dragged_ || std::abs(event.x - pressedAt_) > leastDrag;
    if (dragged_)
        moveTo(pressedBegin_ - (event.x - pressedAt_) / controls::twipsPerPixel * part_.perPixel);
}

void SoundView::release(const controls::MouseEvent& event) {
    if (event.button != 1 || !std::exchange(pressed_, false))
        return;
    if (dragged_) {
        quietSince_ = loop_.now();
        return;
    }
    player_.seek(
        std::clamp(part_.begin + event.x / controls::twipsPerPixel * part_.perPixel, 0.0, duration()));
    quietSince_ = loop_.now() - usersTurn; // what was clicked is what the user looks at
    Clicked();
}

} // namespace sound
