#include "mpv_player.h"

#include "base/carry_on.h"
#include "base/numbers.h"
#include "controls/controls.h"
#include "mpv_sound.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <unistd.h>
#include <utility>

namespace desktop {

namespace {

constexpr double slowestRate = 0.5;
constexpr double fastestRate = 5.0;
constexpr int fullVolume = 100;

// Shortly after a seek or a speed change, mpv reports positions slightly before the audible one. A position
// that is further back than this (seconds) is true: the file did not contain the requested position.
constexpr double earlyReading = 0.5;

// Delay before the length of a new file is measured, so that the start of playback has the disk to itself.
constexpr int quietAfter = 1000; // ms

constexpr double nearEnd = 1.5; // seconds that may be left for a change of the filters without a gap

constexpr int firstLook = 1000;   // ms until a lost output is tried again
constexpr int rarestLook = 30000; // ms

// A leading "/" keeps mpv from interpreting a protocol or placeholder in the name.
std::string absolutePath(const base::Text& path) {
    std::error_code ignored;
    const std::string given = base::toUtf8(path);
    const auto absolute = std::filesystem::absolute(given, ignored);
    return absolute.empty() ? "/" + given : absolute.string();
}

} // namespace

MpvPlayer::MpvPlayer(const MpvOptions& options)
    : options_(options), engine_(std::make_unique<MpvEngine>(options, static_cast<MpvEngineOwner&>(*this))) {
    quietMoment_.setSingleShot(true);
    quietMoment_.setInterval(quietAfter);
    QObject::connect(&quietMoment_, &QTimer::timeout, &loop_, [this] { measureLength(); });
    outputLook_.setSingleShot(true);
    outputLook_.setInterval(firstLook);
    QObject::connect(&outputLook_, &QTimer::timeout, &loop_, [this] { renewOutput(); });
}

void MpvPlayer::setURL(base::TextView path) {
    url_ = path;
    if (path.empty())
        close();
    else
        reload();
}

void MpvPlayer::reload() {
    forget(Media::Opening);
    run_ = Run::Playing;
    file_ = absolutePath(url_);
    load();
}

void MpvPlayer::load() {
    engine_->load(file_);
    applyPause();
}

void MpvPlayer::close() {
    if (media_ != Media::None)
        engine_->unload();
    forget(Media::None);
}

void MpvPlayer::forget(Media media) {
    media_ = media;
    run_ = Run::Stopped;
    measured_ = false;
    quietMoment_.stop();
    length_.reset();
    place_ = 0;
    held_ = false;
    setPicture({});
    duration_ = 0;
    MediaChanged();
}

platform::PlayState MpvPlayer::playState() const {
    if (media_ == Media::None)
        return platform::PlayState::Undefined;
    if (run_ == Run::Stopped)
        return platform::PlayState::Stopped;
    if (media_ != Media::Ready)
        return platform::PlayState::Transitioning;
    return run_ == Run::Playing ? platform::PlayState::Playing : platform::PlayState::Paused;
}

void MpvPlayer::play() {
    if (media_ == Media::Lost)
        return reload();
    if (!hasMedia() || run_ == Run::Playing)
        return;
    if (atEnd())
        moveTo(0);
    if (!hasOutput_) {
        // What is buffered would be lost with the old output.
        const double position = currentPosition();
        renewOutput();
        moveTo(position);
    }
    run_ = Run::Playing;
    held_ = false;
    applyPause();
}

bool MpvPlayer::atEnd() const {
    // mpv reports the end only after playing up to it, not after a seek to it.
    const bool sentThere = held_ && duration_ > 0 && place_ >= duration_;
    return run_ == Run::Paused && (sentThere || engine_->atEnd());
}

void MpvPlayer::pause() {
    if (!hasMedia() || run_ != Run::Playing)
        return;
    run_ = Run::Paused;
    held_ = media_ != Media::Ready || engine_->seeking();
    applyPause();
    // On a busy machine, the running seek may finish and sound may continue from its target before the pause
    // arrives.
    if (engine_->seeking())
        moveTo(place_);
}

void MpvPlayer::stop() {
    if (hasMedia() && run_ != Run::Stopped)
        haltAtStart();
}

void MpvPlayer::haltAtStart() {
    run_ = Run::Stopped;
    held_ = true;
    // Pause first, so that nothing of the beginning is heard.
    applyPause();
    moveTo(0);
}

double MpvPlayer::currentPosition() const {
    if (!hasMedia() || run_ == Run::Stopped)
        return 0;
    if (held_ || media_ != Media::Ready || engine_->seeking())
        return place_;
    if (const auto heard = engine_->position(); heard && (*heard > place_ || *heard < place_ - earlyReading))
        place_ = std::max(*heard, 0.0);
    return place_;
}

void MpvPlayer::setCurrentPosition(double seconds) {
    if (!hasMedia() || !std::isfinite(seconds))
        return;
    // mpv counts negative positions from the end. An estimated length does not limit the position: mpv finds
    // the true end while seeking.
    double target = std::max(seconds, 0.0);
    if (measured_)
        target = std::min(target, duration_);
    if (run_ == Run::Stopped) {
        if (target == 0)
            return;
        run_ = Run::Paused;
    }
    held_ = run_ == Run::Paused;
    moveTo(target);
    applyPause();
}

void MpvPlayer::moveTo(double seconds) {
    place_ = seconds;
    if (media_ == Media::Starting || media_ == Media::Ready)
        engine_->seek(seconds);
}

base::Text MpvPlayer::currentPositionString() const {
    return !hasMedia() || run_ == Run::Stopped ? base::Text() : base::clockText(currentPosition());
}

base::Text MpvPlayer::durationString() const {
    return hasMedia() ? base::clockText(duration_) : base::Text();
}

void MpvPlayer::setRate(double factor) {
    if (!std::isfinite(factor))
        return;
    rate_ = std::clamp(factor, slowestRate, fastestRate);
    engine_->setSpeed(rate_);
}

void MpvPlayer::setVolume(int percent) {
    volume_ = std::clamp(percent, 0, fullVolume);
    engine_->setVolume(volume_);
}

void MpvPlayer::adjustSound(const platform::SoundAdjustment& sound) {
    if (sound_ == sound)
        return;
    sound_ = sound;
    const double position = currentPosition();
    const bool endIsNear = duration_ > 0 && position > duration_ - nearEnd * rate_;
    engine_->setFilters(soundFilters(sound_), run_ == Run::Playing && !endIsNear);
    // What is buffered while the player pauses has not gone through the new filters.
    if (media_ == Media::Ready && run_ != Run::Playing)
        moveTo(position);
}

void MpvPlayer::showPicturesIn(std::uint64_t window) {
    window_ = window;
    engine_->showPicturesIn(window);
}

void MpvPlayer::setDuration(double seconds) {
    if (std::exchange(duration_, seconds) != seconds)
        MediaChanged();
}

void MpvPlayer::setPicture(platform::PictureSize size) {
    if (size.width == picture_.width && size.height == picture_.height)
        return;
    picture_ = size;
    if (PictureChanged)
        PictureChanged();
}

void MpvPlayer::pictureKnown(int width, int height) {
    setPicture({width * controls::twipsPerPixel, height * controls::twipsPerPixel});
}

void MpvPlayer::applyPause() {
    // A file that starts at another position stays silent until the seek can be sent.
    const bool awaitsSeek = media_ == Media::Opening && place_ > 0;
    engine_->setPause(run_ != Run::Playing || awaitsSeek);
}

void MpvPlayer::fileLoaded() {
    media_ = Media::Starting;
    if (place_ > 0)
        moveTo(place_);
    applyPause();
}

void MpvPlayer::fileLost(const std::string& reason) {
    forget(Media::Lost);
    tellLost(reason);
}

// The system knows better than the engine why a file cannot be opened.
void MpvPlayer::tellLost(const std::string& reason) {
    const bool readable = ::access(file_.c_str(), R_OK) == 0;
    Failed(base::fromUtf8(readable ? reason : std::strerror(errno)));
}

void MpvPlayer::outputKnown(bool exists, const std::string& reason) {
    if (!exists)
        outputLook_.start();
    if (exists == hasOutput_)
        return;
    hasOutput_ = exists;
    if (exists) {
        outputLook_.stop();
        outputLook_.setInterval(firstLook);
        SoundBack();
    } else {
        SoundLost(base::fromUtf8(reason));
    }
}

// An output that hides for long is looked for less often: each look asks every sound system.
void MpvPlayer::renewOutput() {
    if (hasOutput_ || !hasMedia())
        return;
    engine_->renewOutput();
    outputLook_.start(std::min(2 * outputLook_.interval(), rarestLook));
}

void MpvPlayer::soundReady() {
    if (media_ != Media::Ready && !measured_)
        quietMoment_.start();
    media_ = Media::Ready;
    playedSinceRenewal_ = true;
    if (!engine_->seeking() && duration_ > 0)
        place_ = std::min(place_, duration_);
}

void MpvPlayer::pauseCarriedOut() {
    if (run_ != Run::Paused || held_)
        return;
    currentPosition();
    held_ = true;
}

void MpvPlayer::endReached() {
    media_ = Media::Ready;
    haltAtStart();
}

void MpvPlayer::durationKnown(double seconds) {
    if (!measured_)
        setDuration(seconds);
}

void MpvPlayer::measureLength() {
    // Video files state their length, or mpv finds it at once.
    if (media_ != Media::Ready || picture_.exists())
        return;
    const auto take = [this](std::optional<double> seconds) {
        measured_ = seconds.has_value();
        QMetaObject::invokeMethod(
            &loop_, [this] { length_.reset(); }, Qt::QueuedConnection);
        setDuration(seconds.value_or(duration_));
    };
    base::carryOn([&] { length_ = std::make_unique<MpvLength>(file_, take); });
}

void MpvPlayer::engineEnded() {
    // Posted, because this is called from inside the engine that will be destroyed.
    QMetaObject::invokeMethod(
        &loop_, [this] { renewEngine(); }, Qt::QueuedConnection);
}

void MpvPlayer::renewEngine() {
    try {
        engine_ = std::make_unique<MpvEngine>(options_, static_cast<MpvEngineOwner&>(*this));
    } catch (const base::Failure& failure) {
        return fileLost(failure.what());
    }
    engine_->setSpeed(rate_);
    engine_->setVolume(volume_);
    engine_->setFilters(soundFilters(sound_), false);
    if (window_ != 0)
        engine_->showPicturesIn(window_);
    if (!hasMedia())
        return;
    // A file that ends a new engine again is given up.
    if (!playedSinceRenewal_)
        return fileLost("the engine ended");
    playedSinceRenewal_ = false;
    media_ = Media::Opening;
    held_ = run_ == Run::Paused;
    load();
}

} // namespace desktop
