#pragma once

#include "desktop/services/lazy_module.h"
#include "platform/media_player.h"

namespace desktop {

// The media player, through a module that is loaded when the first file needs it: its libraries cost more
// start time and memory than the rest of the program. Until then it behaves like a player without a file. If
// the module cannot be loaded, no file plays.
class LazyPlayer : public platform::MediaPlayer {
public:
    // `module` is the path of the module, in UTF-8.
    explicit LazyPlayer(std::string module) : module_(std::move(module), "quillmere_media_player") {}

    // Loads the module in the background, in idle time, so that the first file need not wait for it.
    void prepare() { module_.prepare(); }

    // Destroys the engine. Must happen before the window that shows its video is destroyed.
    void release() { module_.release(); }

    // The versions of mpv and FFmpeg, one per line; empty without the module.
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
    void adjustSound(const platform::SoundAdjustment& sound) override;
    void showPicturesIn(std::uint64_t window) override;
    platform::PictureSize pictureSize() const override;

private:
    void start();

    LazyModule<platform::MediaPlayer> module_;
    bool failed_ = false;
    base::Text url_;
    // Values to set on the engine once it is loaded.
    double rate_ = 1;
    int volume_ = 50;
    platform::SoundAdjustment sound_;
    std::uint64_t window_ = 0;
};

} // namespace desktop
