// The port to the desktop's media keys and panels.
#pragma once

#include "base/text.h"

#include <cstdint>

namespace platform {

// What panels show of the player.
struct MediaFacts {
    enum class Run : std::uint8_t { Stopped, Paused, Playing };

    Run run = Run::Stopped;
    base::Text path;   // of the open recording; empty for none
    double length = 0; // s; 0 while unknown
    double rate = 1;   // 1 is normal speed
    double volume = 0; // 0 to 1

    bool operator==(const MediaFacts&) const = default;
};

// What panels and media keys ask for. Without a recording, most of it does nothing.
class MediaCommands {
public:
    virtual ~MediaCommands() = default;

    virtual void play() = 0;
    virtual void pause() = 0;
    virtual void playPause() = 0;
    virtual void stop() = 0;
    virtual void stepForward() = 0;
    virtual void stepBack() = 0;
    virtual double position() const = 0; // s
    virtual void setPosition(double seconds) = 0;
    virtual void setRate(double factor) = 0;
    virtual void setVolume(double share) = 0; // 0 to 1
    virtual void open(const base::Text& path) = 0;
    virtual void quit() = 0;
};

// The player as the desktop sees it. Nothing here waits for the desktop; where there is none, or where it
// does not answer, nothing happens.
class MediaControls {
public:
    MediaControls() = default;
    MediaControls(const MediaControls&) = delete;
    MediaControls& operator=(const MediaControls&) = delete;
    virtual ~MediaControls() = default;

    // From now on, the desktop finds the player. Commands arrive on the event loop, never from inside a call.
    // They must outlive this object, or end() must come first.
    virtual void begin(MediaCommands& commands) = 0;
    virtual void end() = 0;

    virtual void show(const MediaFacts& facts) = 0;
    // The position has changed otherwise than by playing, to this one in seconds.
    virtual void jumped(double seconds) = 0;
};

} // namespace platform
