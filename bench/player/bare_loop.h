// The baseline: libmpv without anything around it.
#pragma once

struct mpv_handle;

// The shortest program that plays a file with libmpv: blocking commands, its own event loop, no state. It
// uses those options of the program's player that affect playback.
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
    // In seconds; negative while there is none.
    double position();

private:
    mpv_handle* handle_;
};
