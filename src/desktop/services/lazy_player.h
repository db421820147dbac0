#pragma once

#include "desktop/qt/module.h"
#include "platform/media_player.h"

#include <future>
#include <memory>
#include <string>

namespace desktop {

// The media player, whose engine is a module loaded when a file needs it: the shared libraries behind it cost
// more start time and memory than all the rest of the program. Until then it answers as a player without
// media.
class LazyPlayer : public platform::MediaPlayer {
public:
    // `module` is the path of the shared object, in UTF-8.
    explicit LazyPlayer(std::string module) : module_(std::move(module)) {}

    // Reads the module in the background, in a quiet moment, so that the first file need not wait for it.
    void prepare();

    // Lets the engine go, before the window that it shows pictures in.
    void release() { engine_.reset(); }

    // The versions of mpv and FFmpeg, a line each; empty without the module.
    std::string versions();

    void setURL(base::TextView path) override;
    base::Text URL() const override;
    void close() override;
    platform::PlayState playState() const override;
    void play() override;
    void pause() override;
    void stop() override;
    double currentPosition() const override;
    void setCurrentPosition(double seconds) override;
    base::Text currentPositionString() const override;
    double duration() const override;
    base::Text durationString() const override;
    double rate() const override;
    void setRate(double factor) override;
    void setVolume(int percent) override;
    void showPicturesIn(std::uint64_t window) override;
    platform::PictureSize pictureSize() const override;

private:
    // The module's entry of this name; null when there is none.
    template <typename Function>
    Function entry(const char* name);
    void start();

    std::string module_;
    std::shared_future<Module> reading_;
    std::unique_ptr<platform::MediaPlayer> engine_;
    bool failed_ = false;
    base::Text url_;
    // What the engine will be told once it is there.
    double rate_ = 1;
    int volume_ = 50;
    std::uint64_t window_ = 0;
};

} // namespace desktop
