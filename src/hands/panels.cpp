#include "hands/panels.h"

#include "base/numbers.h"

#include <algorithm>
#include <cmath>

namespace hands {

using platform::MediaFacts;
using platform::PlayState;

namespace {

constexpr int watchPeriod = 250;   // ms
constexpr double unevenness = 0.4; // s that the position may differ from what the clock says

} // namespace

Panels::Panels(platform::EventLoop& loop, const Player& player, PlayerCommands& commands,
               std::function<platform::MediaControls*()> controls)
    : loop_(loop), player_(player), commands_(commands), find_(std::move(controls)), watch_(loop) {
    watch_.Tick = [this] { watch(); };
}

void Panels::begin() {
    if (!controls_)
        controls_ = find_();
    if (!controls_)
        return;
    shown_ = facts();
    position_ = position();
    lookedAt_ = loop_.now();
    controls_->show(shown_);
    controls_->begin(*this);
    watch_.setInterval(watchPeriod);
}

void Panels::end() {
    watch_.setInterval(0);
    if (controls_)
        controls_->end();
    controls_ = nullptr;
}

bool Panels::isOpen() const {
    return player_.form.mnuPlay.enabled && !player_.form.WMP1.URL().empty();
}

MediaFacts Panels::facts() const {
    const platform::MediaPlayer& media = player_.form.WMP1;
    MediaFacts facts;
    facts.rate = media.rate();
    facts.volume = std::clamp(base::val(player_.form.Image1.tag.get()) / 100, 0.0, 1.0);
    if (!isOpen())
        return facts;
    facts.path = media.URL();
    facts.length = media.duration();
    const PlayState state = media.playState();
    if (state == PlayState::Playing || (state == PlayState::Transitioning && player_.form.isPlaying()))
        facts.run = MediaFacts::Run::Playing;
    else if (state == PlayState::Paused || state == PlayState::Transitioning)
        facts.run = MediaFacts::Run::Paused;
    return facts;
}

void Panels::watch() {
    if (!controls_)
        return;
    const MediaFacts now = facts();
    watchPosition(now);
    if (now == shown_)
        return;
    shown_ = now;
    controls_->show(now);
}

// A panel moves its position by the clock, from the last one that it was told.
void Panels::watchPosition(const MediaFacts& now) {
    const double seconds = position();
    const std::int64_t time = loop_.now();
    const bool plays = shown_.run == MediaFacts::Run::Playing && now.run == MediaFacts::Run::Playing;
    const double passed = plays ? static_cast<double>(time - lookedAt_) / 1000 * shown_.rate : 0;
    const bool isAsShown = std::abs(seconds - position_ - passed) < unevenness && now.path == shown_.path;
    position_ = seconds;
    lookedAt_ = time;
    if (!isAsShown)
        controls_->jumped(seconds);
}

void Panels::play() {
    commands_.run(Command::PlayWhileHeld);
    watch();
}

void Panels::pause() {
    commands_.release();
    watch();
}

void Panels::playPause() {
    commands_.run(Command::PlayPause);
    watch();
}

void Panels::stop() {
    if (player_.form.mnuStop.offered())
        player_.form.mnuStop.Click();
    watch();
}

void Panels::stepForward() {
    commands_.run(Command::StepForward);
    watch();
}

void Panels::stepBack() {
    commands_.run(Command::StepBack);
    watch();
}

double Panels::position() const {
    return isOpen() ? player_.form.WMP1.currentPosition() : 0;
}

void Panels::setPosition(double seconds) {
    if (isOpen())
        player_.form.WMP1.setCurrentPosition(seconds);
    watch();
}

void Panels::setRate(double factor) {
    if (isOpen())
        player_.speed.setRate(factor);
    watch();
}

void Panels::setVolume(double share) {
    player_.volume.setVolume(std::clamp(share, 0.0, 1.0) * 100);
    watch();
}

void Panels::open(const base::Text& path) {
    player_.opener.ApriMedia(path);
    watch();
}

void Panels::quit() {
    player_.form.mnuEsci.Click();
}

} // namespace hands
