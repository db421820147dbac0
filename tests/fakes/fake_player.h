#pragma once

#include "base/numbers.h"
#include "fakes/virtual_loop.h"
#include "platform/media_player.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace fakes {

// A media player in virtual time: loading takes `loadingTime`, playback follows the rate and stops at the
// end. Plays files whose length the test has set. `commands` logs the calls, before the rules of the port are
// applied.
class FakePlayer : public platform::MediaPlayer {
public:
    static constexpr double unknownLength = std::numeric_limits<double>::infinity();

    explicit FakePlayer(VirtualLoop& loop) : loop_(loop) {}

    std::map<base::Text, double> lengths; // seconds by path
    int loadingTime = 50;                 // ms
    std::vector<std::string> commands;    // in order: "load", "play", "pause", "stop", "seek 3.5", "close"
    int volume = -1;
    platform::SoundAdjustment sound;

    void setURL(base::TextView path) override {
        commands.emplace_back(path.empty() ? "unload" : "load");
        url_ = path;
        path.empty() ? forget() : load();
    }
    base::Text URL() const override { return url_; }
    void close() override {
        commands.emplace_back("close");
        forget();
    }

    platform::PlayState playState() const override {
        if (!media_)
            return platform::PlayState::Undefined;
        if (run_ == platform::PlayState::Stopped || (!isLoading() && (length() == 0 || isAtEnd())))
            return platform::PlayState::Stopped;
        return isLoading() ? platform::PlayState::Transitioning : run_;
    }
    void play() override {
        commands.emplace_back("play");
        settle();
        if (media_ && !isLoading() && length() == 0)
            return load();
        if (!media_ || run_ == platform::PlayState::Playing)
            return;
        moveTo(place() >= length() ? 0 : place());
        run_ = platform::PlayState::Playing;
    }
    void pause() override {
        commands.emplace_back("pause");
        settle();
        moveTo(place());
        if (run_ == platform::PlayState::Playing)
            run_ = platform::PlayState::Paused;
    }
    void stop() override {
        commands.emplace_back("stop");
        run_ = platform::PlayState::Stopped;
        settle();
    }

    double currentPosition() const override {
        return playState() == platform::PlayState::Stopped ? 0 : place();
    }
    void setCurrentPosition(double seconds) override {
        commands.push_back("seek " + base::toUtf8(base::numberText(seconds)));
        settle();
        if (!hasMedia() || !std::isfinite(seconds))
            return;
        double end = unknownLength;
        if (!isLoading())
            end = length();
        const double target = std::clamp(seconds, 0.0, end);
        if (run_ == platform::PlayState::Stopped && target > 0)
            run_ = platform::PlayState::Paused;
        moveTo(target);
    }
    base::Text currentPositionString() const override {
        return !hasMedia() || playState() == platform::PlayState::Stopped ? base::Text()
                                                                          : base::clockText(place());
    }
    double duration() const override { return isLoading() || !std::isfinite(length()) ? 0 : length(); }
    base::Text durationString() const override {
        return hasMedia() ? base::clockText(duration()) : base::Text();
    }
    double rate() const override { return rate_; }
    void setRate(double factor) override {
        settle();
        moveTo(place());
        rate_ = std::clamp(factor, 0.5, 5.0);
    }
    void setVolume(int percent) override { volume = percent; }
    void adjustSound(const platform::SoundAdjustment& adjustment) override { sound = adjustment; }
    void showPicturesIn(std::uint64_t) override {}
    platform::PictureSize pictureSize() const override { return picture; }

    platform::PictureSize picture; // after setting it, the test calls PictureChanged

private:
    void load() {
        forget();
        media_ = true;
        run_ = platform::PlayState::Playing;
        since_ = ready_ = loop_.now() + loadingTime;
        failure_->start(loadingTime);
    }
    void forget() {
        media_ = false;
        failure_->stop();
        run_ = platform::PlayState::Stopped;
        position_ = 0;
        if (std::exchange(picture, {}).exists() && PictureChanged)
            PictureChanged();
        MediaChanged();
    }
    bool isLoading() const { return media_ && loop_.now() < ready_; }
    bool hasMedia() const { return media_ && (isLoading() || length() > 0); }
    double length() const { return media_ && lengths.contains(url_) ? lengths.at(url_) : 0; }
    bool isAtEnd() const { return run_ == platform::PlayState::Playing && place() >= length(); }
    double place() const {
        if (isLoading())
            return position_;
        const double ms = run_ == platform::PlayState::Playing ? double(loop_.now() - since_) : 0;
        return std::min(position_ + ms / 1000 * rate_, length());
    }
    // Applies the state change that the passage of time has caused: stopped at the end of the file.
    void settle() {
        if (playState() != platform::PlayState::Stopped)
            return;
        run_ = platform::PlayState::Stopped;
        position_ = 0;
    }
    void moveTo(double seconds) {
        position_ = seconds;
        since_ = std::max(loop_.now(), ready_);
    }

    VirtualLoop& loop_;
    std::unique_ptr<platform::Alarm> failure_ = loop_.alarm([this] {
        if (length() == 0)
            Failed(u"unknown format");
        else
            MediaChanged();
    });
    base::Text url_;
    bool media_ = false;
    platform::PlayState run_ = platform::PlayState::Stopped; // state after loading
    std::int64_t ready_ = 0;                                 // when loading ends
    double position_ = 0;                                    // seconds, at time `since_`
    std::int64_t since_ = 0;
    double rate_ = 1;
};

} // namespace fakes
