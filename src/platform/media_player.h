// The port to the media player.
#pragma once

#include "base/text.h"
#include "platform/sound_adjustment.h"

#include <cstdint>
#include <functional>

namespace platform {

// The values of MediaPlayer::playState that the program tests or displays.
enum class PlayState { Undefined = 0, Stopped = 1, Paused = 2, Playing = 3, Transitioning = 9 };

// The size in twips at which a video picture has its own pixels, and these are square.
struct PictureSize {
    double width = 0;
    double height = 0;

    bool exists() const { return width > 0 && height > 0; }
};

// A media player with at most one file. Commands are accepted at once and take effect asynchronously. None
// blocks and none reports an error: a file that cannot be played ends in Stopped at position 0. Positions and
// durations are in seconds.
class MediaPlayer {
public:
    MediaPlayer() = default;
    MediaPlayer(const MediaPlayer&) = delete;
    MediaPlayer& operator=(const MediaPlayer&) = delete;
    virtual ~MediaPlayer() = default;

    // Loads the file at this path and starts playing it; an empty path unloads. URL returns the last path
    // set.
    virtual void setURL(base::TextView path) = 0;
    virtual base::Text URL() const = 0;

    // Releases the media.
    virtual void close() = 0;

    // Transitioning from setURL until the first sound or the failure to load. Stopped after stop(), after a
    // failed load, and at the end of the media once the last sound has been output.
    virtual PlayState playState() const = 0;

    // Starts or resumes at the current position; at the end of the media, starts from 0.
    virtual void play() = 0;
    // Pauses and keeps the position.
    virtual void pause() = 0;
    // Stops and resets the position to 0.
    virtual void stop() = 0;

    // 0 when stopped. Setting clamps it to the length of the media and ignores NaN. While paused, reading
    // returns the position that was set, so that repeated steps do not drift. Setting a position above 0
    // moves a stopped player to Paused there.
    virtual double currentPosition() const = 0;
    virtual void setCurrentPosition(double seconds) = 0;
    // "mm:ss" below an hour, "h:mm:ss" from there on; empty when stopped.
    virtual base::Text currentPositionString() const = 0;

    // 0 until known; may be corrected during playback.
    virtual double duration() const = 0;
    // In the form of currentPositionString; empty without media.
    virtual base::Text durationString() const = 0;

    // Speed factor: 1.0 is normal, the pitch is kept. Holds values from 0.5 to 5 and keeps them when the
    // media changes.
    virtual double rate() const = 0;
    virtual void setRate(double factor) = 0;

    // 0 to 100.
    virtual void setVolume(int percent) = 0;

    // Kept for the next files. May change at any time: positions stay exact, and playback continues without a
    // gap.
    virtual void adjustSound(const SoundAdjustment& sound) = 0;

    // From the next file on, shows the video in this window of the windowing system, at the window's current
    // size. The window must outlive the player. Without a window only the sound is played.
    virtual void showPicturesIn(std::uint64_t window) = 0;

    // The size of the video; exists() is false for audio files and while it is unknown.
    virtual PictureSize pictureSize() const = 0;

    // Called when the file could not be opened or played, with the system's words.
    std::function<void(const base::Text& reason)> Failed = [](const base::Text&) {};
    // Called when the sound output is gone and the file plays silently, with the sound system's words if it
    // gave any. The player opens an output again by itself once there is one, and then calls SoundBack.
    std::function<void(const base::Text& reason)> SoundLost = [](const base::Text&) {};
    std::function<void()> SoundBack = [] {};

    // Called when another file, or none, has been set, when it is left, and when duration() changes.
    std::function<void()> MediaChanged = [] {};

    // Called when the picture's size changes or the picture disappears. Empty by default.
    std::function<void()> PictureChanged;
};

} // namespace platform
