// The media player on libmpv.
#pragma once

#include "mpv_engine.h"
#include "mpv_length.h"
#include "platform/media_player.h"

#include <QTimer>

#include <memory>

namespace desktop {

// The program's media player: stores what the program requested and reports it at once, while the engine
// follows asynchronously. Must be used on the thread of the Qt event loop that created it.
class MpvPlayer final : public platform::MediaPlayer, private MpvEngineOwner {
public:
    // Throws base::Failure if libmpv cannot be started.
    explicit MpvPlayer(const MpvOptions& options);

    void setURL(base::TextView path) override;
    base::Text URL() const override { return url_; }
    void close() override;
    platform::PlayState playState() const override;
    void play() override;
    void pause() override;
    void stop() override;
    double currentPosition() const override;
    void setCurrentPosition(double seconds) override;
    base::Text currentPositionString() const override;
    double duration() const override { return duration_; }
    base::Text durationString() const override;
    double rate() const override { return rate_; }
    void setRate(double factor) override;
    void setVolume(int percent) override;
    void adjustSound(const platform::SoundAdjustment& sound) override;
    void showPicturesIn(std::uint64_t window) override;
    platform::PictureSize pictureSize() const override { return picture_; }

    // Frames of the current file that were too late to be decoded or shown.
    std::int64_t lostFrames() const { return engine_->lostFrames(); }

private:
    // Opening: the engine has not opened the file yet. Starting: it has, but the first sound is not ready.
    // Lost: the file could not be played, or the engine has closed it.
    enum class Media { None, Opening, Starting, Ready, Lost };
    // The last requested state; the end of the file also sets Stopped.
    enum class Run { Playing, Paused, Stopped };

    void fileLoaded() override;
    void fileLost(const std::string& reason) override;
    void soundReady() override;
    void pauseCarriedOut() override;
    void endReached() override;
    void durationKnown(double seconds) override;
    void pictureKnown(int width, int height) override;
    void outputKnown(bool exists, const std::string& reason) override;
    void engineEnded() override;

    bool hasMedia() const { return media_ != Media::None && media_ != Media::Lost; }
    bool atEnd() const;
    void reload();
    void forget(Media media);
    void moveTo(double seconds);
    void haltAtStart();
    void applyPause();
    void setDuration(double seconds);
    void setPicture(platform::PictureSize size);
    void load();
    void renewEngine();
    void measureLength();
    void tellLost(const std::string& reason);
    void renewOutput();

    MpvOptions options_;
    base::Text url_;
    std::string file_; // url_ as an absolute path, in bytes
    Media media_ = Media::None;
    Run run_ = Run::Stopped;
    double duration_ = 0;
    bool measured_ = false; // duration_ is measured, not estimated
    double rate_ = 1.0;
    int volume_ = 100;
    platform::SoundAdjustment sound_;
    std::uint64_t window_ = 0;
    bool playedSinceRenewal_ = true;
    platform::PictureSize picture_;
    // The last reported position, in seconds. The engine is asked for a newer one only while sound plays and
    // `held_` is false.
    mutable double place_ = 0;
    bool held_ = true;
    bool hasOutput_ = true;
    std::unique_ptr<MpvEngine> engine_;
    QTimer outputLook_;  // delay until a lost output is tried again
    QTimer quietMoment_; // delay until the length is measured
    std::unique_ptr<MpvLength> length_;
    QObject loop_; // context of posted calls, which are dropped with it
};

} // namespace desktop
