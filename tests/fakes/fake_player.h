#pragma once

#include "base/numbers.h"
#include "fakes/virtual_loop.h"
#include "platform/media_player.h"

#include <algorithm>
#include <map>
#include <string>
#include <vector>

namespace fakes {

// A media player in virtual time: it takes `loadingTime` to load, runs at its rate, stops at the end. A file
// plays when the test gave it a length. It clamps nothing, so that a test sees what it was asked for.
class FakePlayer : public platform::MediaPlayer {
public:
    explicit FakePlayer(VirtualLoop& loop) : loop_(loop) {}

    std::map<base::Text, double> lengths; // seconds by path
    int loadingTime = 50;                 // ms
    std::vector<std::string> commands;    // in order: "load", "play", "pause", "stop", "seek 3.5", "close"
    int volume = -1;

    void setURL(base::TextView path) override {
        url_ = path;
        commands.emplace_back(path.empty() ? "unload" : "load");
        length_ = lengths.contains(url_) ? lengths[url_] : 0;
        position_ = 0;
        started_ = loop_.now() + loadingTime;
        state_ = path.empty() ? platform::PlayState::Undefined : platform::PlayState::Playing;
    }
    base::Text URL() const override { return url_; }
    void close() override { commands.emplace_back("close"); }

    platform::PlayState playState() const override {
        if (state_ == platform::PlayState::Playing && loop_.now() < started_ && position_ == 0)
            return platform::PlayState::Transitioning;
        if (state_ == platform::PlayState::Playing && run() >= length_)
            return platform::PlayState::Stopped;
        return state_;
    }
    void play() override {
        commands.emplace_back("play");
        if (url_.empty() || (state_ == platform::PlayState::Playing && run() < length_))
            return;
        if (playState() == platform::PlayState::Stopped)
            position_ = 0;
        state_ = platform::PlayState::Playing;
        started_ = std::max(loop_.now(), started_);
    }
    void pause() override {
        commands.emplace_back("pause");
        if (state_ != platform::PlayState::Playing)
            return;
        position_ = run();
        state_ = platform::PlayState::Paused;
    }
    void stop() override {
        commands.emplace_back("stop");
        state_ = platform::PlayState::Stopped;
        position_ = 0;
    }

    double currentPosition() const override {
        return playState() == platform::PlayState::Stopped ? 0 : run();
    }
    void setCurrentPosition(double seconds) override {
        commands.push_back("seek " + base::toUtf8(base::numberText(seconds)));
        position_ = seconds;
        started_ = std::max(loop_.now(), started_);
    }
    base::Text currentPositionString() const override {
        return playState() == platform::PlayState::Stopped ? base::Text() : base::clockText(run());
    }
    double duration() const override { return length_; }
    base::Text durationString() const override {
        return url_.empty() ? base::Text() : base::clockText(length_);
    }
    double rate() const override { return rate_; }
    void setRate(double factor) override { rate_ = factor; }
    void setVolume(int percent) override { volume = percent; }
    void showPicturesIn(std::uint64_t) override {}
    platform::PictureSize pictureSize() const override { return picture; }

    platform::PictureSize picture; // the test tells a change by PictureChanged

private:
    double run() const {
        if (state_ != platform::PlayState::Playing)
            return position_;
        return position_ +
               static_cast<double>(std::max<std::int64_t>(0, loop_.now() - started_)) / 1000 * rate_;
    }

    VirtualLoop& loop_;
    base::Text url_;
    platform::PlayState state_ = platform::PlayState::Undefined;
    double length_ = 0;
    double position_ = 0;
    std::int64_t started_ = 0; // when the position last began to run
    double rate_ = 1;
};

} // namespace fakes
