// What the program asks of a media player.
#pragma once

#include "base/text.h"

#include <cstdint>
#include <functional>

namespace platform {

// The values of MediaPlayer::playState that the program tests or shows.
enum class PlayState { Undefined = 0, Stopped = 1, Paused = 2, Playing = 3, Transitioning = 9 };

// The size of a picture in pixels, in its right proportions.
struct PictureSize {
    int width = 0;
    int height = 0;

    bool exists() const { return width > 0 && height > 0; }
};

// One media player with at most one file. Commands are taken at once and carried out soon; none of them
// blocks, and none reports an error: a file that cannot be played ends in Stopped, with position 0. Positions
// and lengths are seconds.
class MediaPlayer {
public:
    MediaPlayer() = default;
    MediaPlayer(const MediaPlayer&) = delete;
    MediaPlayer& operator=(const MediaPlayer&) = delete;
    virtual ~MediaPlayer() = default;

    // Loads the file at this path and starts it by itself; the empty text unloads. URL is what was last
    // given.
    virtual void setURL(base::TextView path) = 0;
    virtual base::Text URL() const = 0;

    // Releases the media.
    virtual void close() = 0;

    // Transitioning from setURL until the first sound or the failure; Stopped by stop(), at the end of the
    // media when its last sound is out, and after a failed load.
    virtual PlayState playState() const = 0;

    // Starts or resumes at the position; at the end of the media, from 0.
    virtual void play() = 0;
    // Holds, keeping the position.
    virtual void pause() = 0;
    // Stops, with the position going back to 0.
    virtual void stop() = 0;

    // Reads 0 when stopped. A position below 0 goes to 0, one behind the end to the end; one that is not a
    // number is ignored. While paused it reads what was asked for, so that repeated steps do not drift. A
    // position above 0 takes a stopped player to Paused there.
    virtual double currentPosition() const = 0;
    virtual void setCurrentPosition(double seconds) = 0;
    // "mm:ss" below an hour, "h:mm:ss" from there on; empty when stopped.
    virtual base::Text currentPositionString() const = 0;

    // 0 until known; it may be corrected while the file plays.
    virtual double duration() const = 0;
    // In the form of currentPositionString; empty without media.
    virtual base::Text durationString() const = 0;

    // Speed factor, 1.0 for normal, pitch kept. It holds what it is given from 0.5 to 5, over changes of
    // media.
    virtual double rate() const = 0;
    virtual void setRate(double factor) = 0;

    // 0 to 100.
    virtual void setVolume(int percent) = 0;

    // Shows pictures, from the next file on, in this window of the windowing system, as large as it is at the
    // time. The window has to outlive the player. Without one a file is heard alone.
    virtual void showPicturesIn(std::uint64_t window) = 0;

    // The picture of the media; none for sound alone and until it is known.
    virtual PictureSize pictureSize() const = 0;

    // Called when the size of the picture has changed, to none as well. Empty until somebody asks.
    std::function<void()> PictureChanged;
};

} // namespace platform
