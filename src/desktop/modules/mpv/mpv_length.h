// How long a file really is.
#pragma once

#include <QObject>

#include <atomic>
#include <functional>
#include <optional>
#include <string>

struct mpv_event;
struct mpv_handle;

namespace desktop {

// Measures a recording in the background, by going to its end on a handle of its own. Where a file does not
// tell its length, the engine guesses it from the first second, and the guess may be far off in both
// directions. Three hours of mp3 take half a second; a file that has an index takes no time.
class MpvLength {
public:
    // `path` is absolute. Calls `measured` once, on this thread and never from inside the constructor, with
    // the seconds; without them when nothing can be found out. Throws base::Failure when libmpv cannot be
    // started.
    MpvLength(const std::string& path, std::function<void(std::optional<double>)> measured);
    ~MpvLength();
    MpvLength(const MpvLength&) = delete;
    MpvLength& operator=(const MpvLength&) = delete;

private:
    void drainEvents();
    void handle(const mpv_event& event);
    void finish(std::optional<double> seconds);
    std::optional<double> length() const;

    std::function<void(std::optional<double>)> measured_;
    QObject loop_; // takes the wake-ups to the thread of the owner
    std::atomic<bool> wakeUpPosted_ = false;
    mpv_handle* handle_ = nullptr;
    double guess_ = 0;
    bool sent_ = false;     // on the way to the end
    bool underWay_ = false; // the engine has taken that up
};

} // namespace desktop
