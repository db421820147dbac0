#include "desktop/services/lazy_player.h"

namespace desktop {

void LazyPlayer::prepare() {
    if (!reading_.valid())
        reading_ = std::async(std::launch::async, [path = module_] { return Module(path); }).share();
}

template <typename Function>
Function LazyPlayer::entry(const char* name) {
    prepare();
    return reading_.get().function<Function>(name);
}

std::string LazyPlayer::versions() {
    std::string versions;
    if (const auto ask = entry<void (*)(std::string*)>("quillmere_media_versions"))
        ask(&versions);
    return versions;
}

void LazyPlayer::start() {
    if (engine_ || failed_)
        return;
    using Make = platform::MediaPlayer* (*)();
    if (const auto make = entry<Make>("quillmere_media_player"))
        engine_.reset(make());
    failed_ = !engine_;
    if (failed_)
        return;
    engine_->setRate(rate_);
    engine_->setVolume(volume_);
    engine_->Failed = [this](const base::Text& reason) { Failed(reason); };
    engine_->SoundLost = [this](const base::Text& reason) { SoundLost(reason); };
    engine_->SoundBack = [this] { SoundBack(); };
    engine_->PictureChanged = [this] {
        if (PictureChanged)
            PictureChanged();
    };
    if (window_ != 0)
        engine_->showPicturesIn(window_);
}

void LazyPlayer::setURL(base::TextView path) {
    url_ = path;
    if (!path.empty())
        start();
    if (engine_)
        engine_->setURL(path);
    else if (failed_ && !path.empty()) {
        const std::string& failure = reading_.get().failure();
        Failed(base::fromUtf8(failure.empty() ? "the engine did not start" : failure));
    }
}

base::Text LazyPlayer::URL() const {
    return url_;
}

void LazyPlayer::close() {
    if (engine_)
        engine_->close();
}

platform::PlayState LazyPlayer::playState() const {
    if (engine_)
        return engine_->playState();
    return failed_ && !url_.empty() ? platform::PlayState::Stopped : platform::PlayState::Undefined;
}

void LazyPlayer::play() {
    if (engine_)
        engine_->play();
}

void LazyPlayer::pause() {
    if (engine_)
        engine_->pause();
}

void LazyPlayer::stop() {
    if (engine_)
        engine_->stop();
}

double LazyPlayer::currentPosition() const {
    return engine_ ? engine_->currentPosition() : 0;
}

void LazyPlayer::setCurrentPosition(double seconds) {
    if (engine_)
        engine_->setCurrentPosition(seconds);
}

base::Text LazyPlayer::currentPositionString() const {
    return engine_ ? engine_->currentPositionString() : base::Text();
}

double LazyPlayer::duration() const {
    return engine_ ? engine_->duration() : 0;
}

base::Text LazyPlayer::durationString() const {
    return engine_ ? engine_->durationString() : base::Text();
}

double LazyPlayer::rate() const {
    return engine_ ? engine_->rate() : rate_;
}

void LazyPlayer::setRate(double factor) {
    rate_ = factor;
    if (engine_)
        engine_->setRate(factor);
}

void LazyPlayer::showPicturesIn(std::uint64_t window) {
    window_ = window;
    if (engine_)
        engine_->showPicturesIn(window);
}

platform::PictureSize LazyPlayer::pictureSize() const {
    return engine_ ? engine_->pictureSize() : platform::PictureSize();
}

void LazyPlayer::setVolume(int percent) {
    volume_ = percent;
    if (engine_)
        engine_->setVolume(percent);
}

} // namespace desktop
