#include "mpv_length.h"

#include "base/failure.h"
#include "mpv_options.h"

#include <mpv/client.h>

#include <algorithm>
#include <array>
#include <clocale>
#include <string_view>
#include <utility>

namespace desktop {

namespace {

// Seconds. Smaller differences confirm the estimate, because the end is only known to the packet.
constexpr double tolerance = 1.0;
constexpr const char* beyondAnyEnd = "1e9"; // seconds

std::optional<double> read(mpv_handle* handle, const char* name) {
    double value = 0;
    return mpv_get_property(handle, name, MPV_FORMAT_DOUBLE, &value) >= 0 ? std::optional(value)
                                                                          : std::nullopt;
}

// The timestamp of the last packet read.
std::optional<double> lastPacket(mpv_handle* handle) {
    mpv_node state{};
    if (mpv_get_property(handle, "demuxer-cache-state", MPV_FORMAT_NODE, &state) < 0)
        return std::nullopt;
    std::optional<double> last;
    for (int i = 0; state.format == MPV_FORMAT_NODE_MAP && i < state.u.list->num; ++i) {
        if (std::string_view(state.u.list->keys[i]) == "debug-ts-last")
            last = state.u.list->values[i].u.double_;
    }
    mpv_free_node_contents(&state);
    return last;
}

} // namespace

MpvLength::MpvLength(const std::string& path, std::function<void(std::optional<double>)> measured)
    : measured_(std::move(measured)) {
    std::setlocale(LC_NUMERIC, "C"); // mpv refuses to start otherwise
    handle_ = mpv_create();
    if (!handle_)
        throw base::Failure("mpv_create");
    try {
        setOptions(handle_, {"null"});
        mpv_set_option_string(handle_, "pause", "yes");
        if (const int error = mpv_initialize(handle_); error < 0)
            throw base::Failure(std::string("mpv_initialize: ") + mpv_error_string(error));
    } catch (...) {
        mpv_terminate_destroy(handle_);
        throw;
    }
    mpv_set_wakeup_callback(
        handle_,
        [](void* self) {
            auto* length = static_cast<MpvLength*>(self);
            if (!length->wakeUpPosted_.exchange(true)) {
                QMetaObject::invokeMethod(
                    &length->loop_, [length] { length->drainEvents(); }, Qt::QueuedConnection);
            }
        },
        this);
    std::array<const char*, 3> command{"loadfile", path.c_str(), nullptr};
    mpv_command_async(handle_, 0, command.data());
}

MpvLength::~MpvLength() {
    mpv_terminate_destroy(handle_);
}

void MpvLength::drainEvents() {
    wakeUpPosted_ = false;
    while (measured_) {
        const mpv_event* event = mpv_wait_event(handle_, 0);
        if (event->event_id == MPV_EVENT_NONE)
            return;
        handle(*event);
    }
}

void MpvLength::handle(const mpv_event& event) {
    switch (event.event_id) {
    case MPV_EVENT_PLAYBACK_RESTART:
        if (underWay_) {
            finish(length());
        } else if (!sent_) {
            guess_ = read(handle_, "duration").value_or(0);
            std::array<const char*, 4> command{"seek", beyondAnyEnd, "absolute+exact", nullptr};
            mpv_command_async(handle_, 0, command.data());
            sent_ = true;
        }
        break;
    case MPV_EVENT_SEEK:
        underWay_ = sent_;
        break;
    case MPV_EVENT_COMMAND_REPLY:
        if (event.error < 0)
            finish(std::nullopt);
        break;
    case MPV_EVENT_END_FILE:
    case MPV_EVENT_SHUTDOWN:
        finish(std::nullopt);
        break;
    default:
        break;
    }
}

std::optional<double> MpvLength::length() const {
    // When a file is longer than estimated, the engine corrects the duration itself while seeking.
    const double known = std::max(guess_, read(handle_, "duration").value_or(0));
    if (known > guess_ + tolerance)
        return known;
    const double end = lastPacket(handle_).value_or(0) - read(handle_, "demuxer-start-time").value_or(0);
    return end > 0 && end < guess_ - tolerance ? end : known;
}

void MpvLength::finish(std::optional<double> seconds) {
    if (const auto tell = std::exchange(measured_, nullptr))
        tell(seconds);
}

} // namespace desktop
