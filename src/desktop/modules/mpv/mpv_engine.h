// The libmpv handle behind the media player.
#pragma once

#include "mpv_options.h"
#include "mpv_setting.h"

#include <QObject>

#include <atomic>
#include <cstdint>
#include <optional>
#include <string>

struct mpv_event;
struct mpv_event_property;

namespace desktop {

// Told what happens to the newest file, on the thread that made the engine and never from inside a call to
// it. What still arrives from a file that was replaced or unloaded is not passed on.
class MpvEngineOwner {
public:
    virtual void fileLoaded() = 0;
    // The file could not be played, or the engine has let go of it.
    virtual void fileLost() = 0;
    // Sound is ready at the position asked for, after a load or a seek. With the engine paused it does not
    // run.
    virtual void soundReady() = 0;
    virtual void pauseCarriedOut() = 0;
    // The last sound is out and no seek is on its way.
    virtual void endReached() = 0;
    // In seconds; the last one told is right.
    virtual void durationKnown(double seconds) = 0;
    // In pixels, in the right proportions.
    virtual void pictureKnown(int width, int height) = 0;
    // The engine has ended by itself: it takes no more commands and tells nothing more.
    virtual void engineEnded() = 0;

protected:
    ~MpvEngineOwner() = default;
};

// One libmpv handle: makes it with the program's options, sends it commands without waiting for them, and
// turns its events into calls of the owner. Needs a running Qt event loop.
class MpvEngine {
public:
    // Throws base::Failure when libmpv cannot be started. The owner has to outlive the engine.
    MpvEngine(const MpvOptions& options, MpvEngineOwner& owner);
    ~MpvEngine();
    MpvEngine(const MpvEngine&) = delete;
    MpvEngine& operator=(const MpvEngine&) = delete;

    // An absolute path as the file system has it, in bytes.
    void load(const std::string& path);
    void unload();

    // Seconds from 0 on, exact to the sample. Needs a loaded file. While a seek is under way only the newest
    // is kept.
    void seek(double seconds);
    bool seeking() const { return seekUnderWay_; }

    // Without a file they are kept for the next one.
    void setPause(bool paused);
    void setSpeed(double factor);
    void setVolume(double percent);
    // A window of the X server, for the files from now on; without one their sound plays alone.
    void showPicturesIn(std::uint64_t window);
    // Frames of the newest file that came too late to be decoded or shown.
    std::int64_t lostFrames() const;

    // Where the sound that is heard now stands, in seconds; nothing while there is none.
    std::optional<double> position() const;
    // True when the file has been played up to its end and not been left from there.
    bool atEnd() const;

private:
    void drainEvents();
    void handle(const mpv_event& event);
    void handleReply(const mpv_event& event);
    void handleLoadReply(const mpv_event& event);
    void handleSettingReply(std::uint64_t kind);
    void handlePicture();
    void tellDuration();
    void handleProperty(const mpv_event_property& property, std::uint64_t kind);
    void handleStart(std::int64_t entry);
    void handleEnd(std::int64_t entry);
    void handleRestart();
    void leaveFile();
    void sendSeek(double seconds);
    void finishSeek();
    void sendPause();
    void sendSpeed();
    void sendVolume();
    void judgeEnd();
    std::uint64_t tag(std::uint64_t kind) const;

    MpvEngineOwner& owner_;
    QObject loop_; // takes the wake-ups to the owner's thread
    std::atomic<bool> wakeUpPosted_ = false;
    mpv_handle* handle_ = nullptr;

    // Counts loads and unloads; what is asked of a file carries it, so that a late answer is known as such.
    std::uint64_t generation_ = 0;
    std::int64_t entry_ = 0; // mpv's number of the newest file, 0 until told
    bool open_ = false;      // mpv works on the newest file

    MpvSetting<int> pause_{0};
    MpvSetting<double> speed_{1.0};
    MpvSetting<double> volume_{100.0};
    bool pauseSeen_ = false;
    bool endSeen_ = false;

    bool seekUnderWay_ = false;
    bool seekBegun_ = false;
    std::optional<double> nextSeek_;
};

} // namespace desktop
