// The libmpv handle behind the media player.
#pragma once

#include "mpv_options.h"
#include "mpv_setting.h"

#include <QObject>
#include <QTimer>

#include <atomic>
#include <cstdint>
#include <optional>
#include <string>

struct mpv_event;
struct mpv_event_property;

namespace desktop {

// Receives events of the newest file, on the thread that created the engine and never from inside a call to
// it. Late events of a replaced or unloaded file are dropped.
class MpvEngineOwner {
public:
    virtual void fileLoaded() = 0;
    // The file could not be played, or the engine has closed it; `reason` is mpv's.
    virtual void fileLost(const std::string& reason) = 0;
    // Sound is ready at the requested position, after a load or a seek. It does not play while the engine is
    // paused.
    virtual void soundReady() = 0;
    virtual void pauseCarriedOut() = 0;
    // The last sound has been played and no seek is pending.
    virtual void endReached() = 0;
    // In seconds; may be called again with a better value.
    virtual void durationKnown(double seconds) = 0;
    // In pixels, corrected for the aspect ratio.
    virtual void pictureKnown(int width, int height) = 0;
    // Whether there is a sound output; without one the file plays silently. `reason` is the sound system's,
    // empty if it gave none.
    virtual void outputKnown(bool exists, const std::string& reason) = 0;
    // The engine has ended by itself: it takes no more commands and reports nothing more.
    virtual void engineEnded() = 0;

protected:
    ~MpvEngineOwner() = default;
};

// One libmpv handle: created with the program's options, controlled by asynchronous commands; its events
// become calls of the owner. Needs a running Qt event loop.
class MpvEngine {
public:
    // Throws base::Failure if libmpv cannot be started. The owner must outlive the engine.
    MpvEngine(const MpvOptions& options, MpvEngineOwner& owner);
    ~MpvEngine();
    MpvEngine(const MpvEngine&) = delete;
    MpvEngine& operator=(const MpvEngine&) = delete;

    // An absolute path in the file system's own bytes.
    void load(const std::string& path);
    void unload();

    // Seconds from the beginning, exact to the sample. Needs a loaded file. While a seek is running, only the
    // newest request is kept.
    void seek(double seconds);
    bool seeking() const { return seekUnderWay_; }

    // Without a file, these are kept for the next one.
    void setPause(bool paused);
    void setSpeed(double factor);
    void setVolume(double percent);
    // A value of mpv's option "af". A value that mpv refuses changes nothing. With `withoutGap`, what plays
    // now continues without a gap; meanwhile, for about a second, mpv would report the end of the file too
    // early.
    void setFilters(const std::string& filters, bool withoutGap);
    // Tries to open a sound output again.
    void renewOutput();
    // Shows the video of the files loaded from now on in this X window. Without a window, only their sound
    // plays.
    void showPicturesIn(std::uint64_t window);
    // Frames of the newest file that were too late to be decoded or shown.
    std::int64_t lostFrames() const;

    // The position of the sound that is heard now, in seconds; empty while there is none.
    std::optional<double> position() const;
    // True if the file has played to its end and has not been moved since.
    bool atEnd() const;

private:
    void drainEvents();
    void handle(const mpv_event& event);
    void handleReply(const mpv_event& event);
    void handleLoadReply(const mpv_event& event);
    void handleSettingReply(std::uint64_t kind);
    void handlePicture();
    void handleOutput(const mpv_event_property& property);
    void handleMessage(const mpv_event& event);
    void tellDuration();
    void handleProperty(const mpv_event_property& property, std::uint64_t kind);
    void handleStart(std::int64_t entry);
    void handleEnd(std::int64_t entry, int error);
    void handleRestart();
    void leaveFile();
    void sendSeek(double seconds);
    void finishSeek();
    void sendPause();
    void sendSpeed();
    void sendVolume();
    void sendFilters();
    void keepOutput(bool kept);
    void judgeEnd();
    std::uint64_t tag(std::uint64_t kind) const;

    MpvEngineOwner& owner_;
    QObject loop_; // delivers wake-ups on the owner's thread
    std::atomic<bool> wakeUpPosted_ = false;
    mpv_handle* handle_ = nullptr;

    // Counts loads and unloads. Requests for a file carry it, so that late replies are recognised.
    std::uint64_t generation_ = 0;
    std::int64_t entry_ = 0;    // mpv's playlist entry id of the newest file, 0 while unknown
    bool open_ = false;         // mpv has started the newest file
    std::string outputFailure_; // the sound system's last error message
    const bool isSilent_;       // mpv's null output was asked for

    MpvSetting<int> pause_{0};
    MpvSetting<double> speed_{1.0};
    MpvSetting<double> volume_{100.0};
    MpvSetting<std::string> filters_{{}};
    QTimer outputKept_; // delay until a change of the filters has reached the output
    bool pauseSeen_ = false;
    bool endSeen_ = false;

    bool seekUnderWay_ = false;
    bool seekBegun_ = false;
    std::optional<double> nextSeek_;
};

} // namespace desktop
