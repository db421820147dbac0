// The yardstick: libmpv with nothing around it.
#pragma once

struct mpv_handle;

// The shortest program that plays a file with libmpv: blocking commands, its own event loop, no state kept.
// It has the options of the program's player that decide what is played and how.
class BareLoop {
public:
    BareLoop();
    ~BareLoop();
    BareLoop(const BareLoop&) = delete;
    BareLoop& operator=(const BareLoop&) = delete;

    // Returns when the sound is ready.
    void load(const char* path);
    void unload();
    void pause(bool paused);
    void seek(double seconds);
    // In seconds; below 0 while there is none.
    double position();

private:
    mpv_handle* handle_;
};
