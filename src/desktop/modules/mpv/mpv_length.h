// The true length of a file.
#pragma once

#include <QObject>

#include <atomic>
#include <functional>
#include <optional>
#include <string>

struct mpv_event;
struct mpv_handle;

namespace desktop {

// Measures a recording in the background by seeking to its end on a handle of its own. If a file does not
// state its length, mpv estimates it from the first second, and the estimate may be far too long or too
// short. Three hours of mp3 take half a second; a file with an index takes no time.
class MpvLength {
public:
    // `path` is absolute. Calls `measured` once, on this thread and never from inside the constructor, with
    // the length in seconds, or empty if it cannot be determined. Throws base::Failure if libmpv cannot be
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
    QObject loop_; // delivers wake-ups on the owner's thread
    std::atomic<bool> wakeUpPosted_ = false;
    mpv_handle* handle_ = nullptr;
    double guess_ = 0;
    bool sent_ = false;     // the seek to the end has been requested
    bool underWay_ = false; // mpv has begun that seek
};

} // namespace desktop
