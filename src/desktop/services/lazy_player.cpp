#include "desktop/services/lazy_player.h"

namespace desktop {

std::string LazyPlayer::versions() {
    std::string versions;
    if (const auto ask = module_.function<void (*)(std::string*)>("quillmere_media_versions"))
        ask(&versions);
    return versions;
}

void LazyPlayer::start() {
    if (module_.get())
        return;
    platform::MediaPlayer* const engine = module_.load();
    failed_ = !engine;
    if (failed_)
        return;
    engine->setRate(rate_);
    engine->setVolume(volume_);
    engine->adjustSound(sound_);
    engine->Failed = [this](const base::Text& reason) { Failed(reason); };
    engine->SoundLost = [this](const base::Text& reason) { SoundLost(reason); };
    engine->SoundBack = [this] { SoundBack(); };
    engine->MediaChanged = [this] { MediaChanged(); };
    engine->PictureChanged = [this] {
        if (PictureChanged)
            PictureChanged();
    };
    if (window_ != 0)
        engine->showPicturesIn(window_);
}

void LazyPlayer::setURL(base::TextView path) {
    url_ = path;
    if (!path.empty())
        start();
    if (auto* const engine = module_.get())
        engine->setURL(path);
    else if (failed_ && !path.empty())
        Failed(base::fromUtf8(module_.failure()));
}

base::Text LazyPlayer::URL() const {
    return url_;
}

void LazyPlayer::close() {
    if (auto* const engine = module_.get())
        engine->close();
}

platform::PlayState LazyPlayer::playState() const {
    if (const auto* const engine = module_.get())
        return engine->playState();
    return failed_ && !url_.empty() ? platform::PlayState::Stopped : platform::PlayState::Undefined;
}

void LazyPlayer::play() {
    if (auto* const engine = module_.get())
        engine->play();
}

void LazyPlayer::pause() {
    if (auto* const engine = module_.get())
        engine->pause();
}

void LazyPlayer::stop() {
    if (auto* const engine = module_.get())
        engine->stop();
}

double LazyPlayer::currentPosition() const {
    const auto* const engine = module_.get();
    return engine ? engine->currentPosition() : 0;
}

void LazyPlayer::setCurrentPosition(double seconds) {
    if (auto* const engine = module_.get())
        engine->setCurrentPosition(seconds);
}

base::Text LazyPlayer::currentPositionString() const {
    const auto* const engine = module_.get();
    return engine ? engine->currentPositionString() : base::Text();
}

double LazyPlayer::duration() const {
    const auto* const engine = module_.get();
    return engine ? engine->duration() : 0;
}

base::Text LazyPlayer::durationString() const {
    const auto* const engine = module_.get();
    return engine ? engine->durationString() : base::Text();
}

double LazyPlayer::rate() const {
    const auto* const engine = module_.get();
    return engine ? engine->rate() : rate_;
}

void LazyPlayer::setRate(double factor) {
    rate_ = factor;
    if (auto* const engine = module_.get())
        engine->setRate(factor);
}

void LazyPlayer::showPicturesIn(std::uint64_t window) {
    window_ = window;
    if (auto* const engine = module_.get())
        engine->showPicturesIn(window);
}

platform::PictureSize LazyPlayer::pictureSize() const {
    const auto* const engine = module_.get();
    return engine ? engine->pictureSize() : platform::PictureSize();
}

void LazyPlayer::setVolume(int percent) {
    volume_ = percent;
    if (auto* const engine = module_.get())
        engine->setVolume(percent);
}

void LazyPlayer::adjustSound(const platform::SoundAdjustment& sound) {
    sound_ = sound;
    if (auto* const engine = module_.get())
        engine->adjustSound(sound);
}

} // namespace desktop
