#include "mpv_engine.h"

#include "base/failure.h"
#include "mpv_options.h"

#include <mpv/client.h>

#include <array>
#include <clocale>
#include <cstdio>
#include <string_view>

namespace desktop {

namespace {

// What a reply belongs to; the bits above hold the generation.
enum Kind : std::uint64_t {
    Load,
    Seek,
    Pause,
    Speed,
    Volume,
    Duration,
    End,
    Picture,
    Output,
    Filters,
    KeepOutput
};
constexpr int kindBits = 4;
constexpr std::uint64_t kindMask = (1U << kindBits) - 1;
constexpr std::string_view noOutput = "null";
constexpr int outputKeptFor = 1000; // ms; the output buffers less than half of it

std::int64_t entryNumber(const mpv_node& result) {
    if (result.format != MPV_FORMAT_NODE_MAP)
        return 0;
    for (int i = 0; i < result.u.list->num; ++i) {
        if (std::string_view(result.u.list->keys[i]) == "playlist_entry_id")
            return result.u.list->values[i].u.int64;
    }
    return 0;
}

bool readFlag(mpv_handle* handle, const char* name) {
    int flag = 0;
    return mpv_get_property(handle, name, MPV_FORMAT_FLAG, &flag) >= 0 && flag != 0;
}

} // namespace

MpvEngine::MpvEngine(const MpvOptions& options, MpvEngineOwner& owner)
    : owner_(owner), isSilent_(options.audioOutput == noOutput) {
    // The toolkit has set the user's locale; mpv refuses to start where the decimal separator is a comma.
    std::setlocale(LC_NUMERIC, "C");
    handle_ = mpv_create();
    if (!handle_)
        throw base::Failure("mpv_create");
    try {
        setOptions(handle_, options);
        if (const int error = mpv_initialize(handle_); error < 0)
            throw base::Failure(std::string("mpv_initialize: ") + mpv_error_string(error));
    } catch (...) {
        mpv_terminate_destroy(handle_);
        throw;
    }
    outputKept_.setSingleShot(true);
    outputKept_.setInterval(outputKeptFor);
    QObject::connect(&outputKept_, &QTimer::timeout, &loop_, [this] { keepOutput(false); });
    // What the outputs say when they fail.
    mpv_request_log_messages(handle_, "error");
    mpv_observe_property(handle_, Output, "current-ao", MPV_FORMAT_STRING);
    mpv_set_wakeup_callback(
        handle_,
        [](void* self) {
            auto* engine = static_cast<MpvEngine*>(self);
            if (!engine->wakeUpPosted_.exchange(true)) {
                QMetaObject::invokeMethod(
                    &engine->loop_, [engine] { engine->drainEvents(); }, Qt::QueuedConnection);
            }
        },
        this);
}

MpvEngine::~MpvEngine() {
    // Returns after mpv's threads have ended, so nothing more is posted to this object. Calls posted earlier
    // are dropped with loop_.
    mpv_terminate_destroy(handle_);
}

void MpvEngine::load(const std::string& path) {
    leaveFile();
    std::array<const char*, 4> command{"loadfile", path.c_str(), "replace", nullptr};
    mpv_command_async(handle_, tag(Load), command.data());
}

void MpvEngine::unload() {
    leaveFile();
    std::array<const char*, 2> command{"stop", nullptr};
    mpv_command_async(handle_, tag(Load), command.data());
}

void MpvEngine::leaveFile() {
    mpv_unobserve_property(handle_, tag(Duration));
    mpv_unobserve_property(handle_, tag(End));
    mpv_unobserve_property(handle_, tag(Pause));
    mpv_unobserve_property(handle_, tag(Picture));
    ++generation_;
    entry_ = 0;
    open_ = false;
    endSeen_ = false;
    pauseSeen_ = false;
    seekUnderWay_ = false;
    nextSeek_.reset();
}

void MpvEngine::seek(double seconds) {
    if (seekUnderWay_)
        nextSeek_ = seconds;
    else
        sendSeek(seconds);
}

void MpvEngine::sendSeek(double seconds) {
    std::array<char, 32> target{};
    std::snprintf(target.data(), target.size(), "%.9f", seconds);
    std::array<const char*, 4> command{"seek", target.data(), "absolute+exact", nullptr};
    seekBegun_ = false;
    seekUnderWay_ = mpv_command_async(handle_, tag(Seek), command.data()) >= 0;
}

void MpvEngine::finishSeek() {
    seekUnderWay_ = false;
    if (nextSeek_) {
        sendSeek(*nextSeek_);
        nextSeek_.reset();
    }
}

void MpvEngine::setPause(bool paused) {
    pause_.want(paused ? 1 : 0);
    sendPause();
}

void MpvEngine::sendPause() {
    // Unpausing before the new file is open would play a bit of the previous one.
    if (!pause_.due() || (!open_ && pause_.wanted() == 0))
        return;
    int value = pause_.begin();
    if (mpv_set_property_async(handle_, Pause, "pause", MPV_FORMAT_FLAG, &value) < 0)
        pause_.finish();
}

void MpvEngine::setSpeed(double factor) {
    speed_.want(factor);
    sendSpeed();
}

void MpvEngine::sendSpeed() {
    if (!speed_.due())
        return;
    double value = speed_.begin();
    if (mpv_set_property_async(handle_, Speed, "speed", MPV_FORMAT_DOUBLE, &value) < 0)
        speed_.finish();
}

void MpvEngine::setVolume(double percent) {
    volume_.want(percent);
    sendVolume();
}

void MpvEngine::sendVolume() {
    if (!volume_.due())
        return;
    double value = volume_.begin();
    if (mpv_set_property_async(handle_, Volume, "volume", MPV_FORMAT_DOUBLE, &value) < 0)
        volume_.finish();
}

void MpvEngine::setFilters(const std::string& filters, bool withoutGap) {
    if (withoutGap && filters != filters_.wanted()) {
        keepOutput(true);
        outputKept_.start();
    }
    filters_.want(filters);
    sendFilters();
}

void MpvEngine::sendFilters() {
    if (!filters_.due())
        return;
    const std::string value = filters_.begin();
    const char* text = value.c_str();
    if (mpv_set_property_async(handle_, Filters, "af", MPV_FORMAT_STRING, &text) < 0)
        filters_.finish();
}

// Without this option, mpv lets the output run empty after any change of the filters and opens it again; with
// it, mpv reports the end of a file before the last sound has been played.
void MpvEngine::keepOutput(bool kept) {
    const char* value = kept ? "weak" : "no";
    mpv_set_property_async(handle_, KeepOutput, "gapless-audio", MPV_FORMAT_STRING, &value);
}

void MpvEngine::renewOutput() {
    std::array<const char*, 2> command{"ao-reload", nullptr};
    mpv_command_async(handle_, Output, command.data());
}

void MpvEngine::showPicturesIn(std::uint64_t window) {
    auto id = static_cast<std::int64_t>(window);
    mpv_set_property(handle_, "wid", MPV_FORMAT_INT64, &id);
    // The graphics card's scaler if the X server offers it, otherwise plain images, which two cores can
    // handle at 720p. Not "gpu": with a software-rendering driver it has crashed the whole process.
    mpv_set_property_string(handle_, "vo", "xv,x11,null");
    mpv_set_property_string(handle_, "vid", "auto");
}

std::int64_t MpvEngine::lostFrames() const {
    std::int64_t lost = 0;
    for (const char* name : {"frame-drop-count", "decoder-frame-drop-count"}) {
        std::int64_t count = 0;
        if (mpv_get_property(handle_, name, MPV_FORMAT_INT64, &count) >= 0)
            lost += count;
    }
    return lost;
}

std::optional<double> MpvEngine::position() const {
    double seconds = 0;
    // "time-pos" is up to 50 ms old; it is used only for files without sound.
    for (const char* name : {"audio-pts", "time-pos"}) {
        if (mpv_get_property(handle_, name, MPV_FORMAT_DOUBLE, &seconds) >= 0)
            return seconds;
    }
    return std::nullopt;
}

bool MpvEngine::atEnd() const {
    return open_ && !seekUnderWay_ && endSeen_ && readFlag(handle_, "eof-reached");
}

std::uint64_t MpvEngine::tag(std::uint64_t kind) const {
    return generation_ << kindBits | kind;
}

void MpvEngine::drainEvents() {
    // Reset before the first event is taken, so that later events post a new wake-up.
    wakeUpPosted_ = false;
    while (true) {
        const mpv_event* event = mpv_wait_event(handle_, 0);
        if (event->event_id == MPV_EVENT_NONE)
            return;
        handle(*event);
    }
}

void MpvEngine::handle(const mpv_event& event) {
    switch (event.event_id) {
    case MPV_EVENT_COMMAND_REPLY:
    case MPV_EVENT_SET_PROPERTY_REPLY:
        handleReply(event);
        break;
    case MPV_EVENT_START_FILE:
        handleStart(static_cast<const mpv_event_start_file*>(event.data)->playlist_entry_id);
        break;
    case MPV_EVENT_END_FILE:
        // When the engine quits, it ends the file first. That is not reported: the owner resumes the file in
        // a new engine.
        if (const auto& end = *static_cast<const mpv_event_end_file*>(event.data);
            end.reason != MPV_END_FILE_REASON_QUIT)
            handleEnd(end.playlist_entry_id, end.error);
        break;
    case MPV_EVENT_FILE_LOADED:
        if (open_)
            owner_.fileLoaded();
        break;
    case MPV_EVENT_SEEK:
        seekBegun_ = open_;
        break;
    case MPV_EVENT_PLAYBACK_RESTART:
        handleRestart();
        break;
    case MPV_EVENT_SHUTDOWN:
        open_ = false;
        owner_.engineEnded();
        break;
    case MPV_EVENT_LOG_MESSAGE:
        handleMessage(event);
        break;
    case MPV_EVENT_PROPERTY_CHANGE:
        if (event.reply_userdata == Output)
            handleOutput(*static_cast<const mpv_event_property*>(event.data));
        else if (event.reply_userdata >> kindBits == generation_)
            handleProperty(*static_cast<const mpv_event_property*>(event.data),
                           event.reply_userdata & kindMask);
        break;
    default:
        break;
    }
}

void MpvEngine::handleReply(const mpv_event& event) {
    const std::uint64_t kind = event.reply_userdata & kindMask;
    if (event.event_id == MPV_EVENT_SET_PROPERTY_REPLY)
        handleSettingReply(kind);
    else if (event.reply_userdata >> kindBits != generation_)
        return; // also the answer to a look for an output
    else if (kind == Load)
        handleLoadReply(event);
    else if (kind == Seek && event.error < 0)
        finishSeek();
}

void MpvEngine::handleLoadReply(const mpv_event& event) {
    entry_ = entryNumber(static_cast<const mpv_event_command*>(event.data)->result);
    if (event.error < 0)
        owner_.fileLost(mpv_error_string(event.error));
}

void MpvEngine::handleSettingReply(std::uint64_t kind) {
    if (kind == Speed) {
        speed_.finish();
        sendSpeed();
    } else if (kind == Volume) {
        volume_.finish();
        sendVolume();
    } else if (kind == Filters) {
        filters_.finish();
        sendFilters();
    } else if (kind == Pause) {
        pause_.finish();
        sendPause();
        if (pause_.settled())
            owner_.pauseCarriedOut();
        judgeEnd();
    }
}

void MpvEngine::handleStart(std::int64_t entry) {
    if (entry != entry_ || entry_ == 0)
        return;
    open_ = true;
    // Observed again for each file, so that no value of the previous file is taken for one of this file.
    mpv_observe_property(handle_, tag(Duration), "duration", MPV_FORMAT_DOUBLE);
    mpv_observe_property(handle_, tag(End), "eof-reached", MPV_FORMAT_FLAG);
    mpv_observe_property(handle_, tag(Pause), "pause", MPV_FORMAT_FLAG);
    mpv_observe_property(handle_, tag(Picture), "dheight", MPV_FORMAT_INT64);
    sendPause();
}

void MpvEngine::handleEnd(std::int64_t entry, int error) {
    if (entry != entry_ || entry_ == 0)
        return;
    leaveFile();
    owner_.fileLost(mpv_error_string(error < 0 ? error : MPV_ERROR_NOTHING_TO_PLAY));
}

void MpvEngine::handleRestart() {
    if (!open_)
        return;
    // The playback restart of the load may still arrive after the first seek has been sent.
    if (seekUnderWay_ && seekBegun_)
        finishSeek();
    // A seek beyond an estimated end has found the true duration, which mpv reports only after this event.
    tellDuration();
    owner_.soundReady();
    judgeEnd();
}

void MpvEngine::tellDuration() {
    if (double seconds = 0; mpv_get_property(handle_, "duration", MPV_FORMAT_DOUBLE, &seconds) >= 0)
        owner_.durationKnown(seconds);
}

void MpvEngine::handleProperty(const mpv_event_property& property, std::uint64_t kind) {
    if (kind == Picture) {
        handlePicture();
    } else if (property.format == MPV_FORMAT_DOUBLE) {
        owner_.durationKnown(*static_cast<const double*>(property.data));
    } else if (property.format == MPV_FORMAT_FLAG) {
        const bool flag = *static_cast<const int*>(property.data) != 0;
        (kind == End ? endSeen_ : pauseSeen_) = flag;
        judgeEnd();
    }
}

void MpvEngine::handlePicture() {
    std::int64_t width = 0;
    std::int64_t height = 0;
    if (mpv_get_property(handle_, "dwidth", MPV_FORMAT_INT64, &width) < 0 ||
        mpv_get_property(handle_, "dheight", MPV_FORMAT_INT64, &height) < 0)
        width = height = 0;
    owner_.pictureKnown(static_cast<int>(width), static_cast<int>(height));
}

void MpvEngine::handleMessage(const mpv_event& event) {
    const auto& message = *static_cast<const mpv_event_log_message*>(event.data);
    if (!std::string_view(message.prefix).starts_with("ao/"))
        return;
    outputFailure_ = message.text;
    outputFailure_.erase(outputFailure_.find_last_not_of("\r\n .") + 1);
}

// If no output can be opened, mpv falls back to its null output.
void MpvEngine::handleOutput(const mpv_event_property& property) {
    if (isSilent_ || property.format != MPV_FORMAT_STRING)
        return;
    const bool exists = *static_cast<const char* const*>(property.data) != noOutput;
    owner_.outputKnown(exists, outputFailure_);
    if (exists)
        outputFailure_.clear();
}

// mpv pauses by itself at the end. If the program has seeked back in the meantime, that pause is lifted
// again.
void MpvEngine::judgeEnd() {
    if (!pauseSeen_ || pause_.wanted() || seekUnderWay_)
        return;
    if (atEnd()) {
        owner_.endReached();
    } else {
        pause_.correct(readFlag(handle_, "pause") ? 1 : 0);
        sendPause();
    }
}

} // namespace desktop
