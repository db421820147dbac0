#include "bare_loop.h"

#include <mpv/client.h>

#include <string>

BareLoop::BareLoop() : handle_(mpv_create()) {
    constexpr const char* options[][2] = {
        {"config", "no"},       {"idle", "yes"},
        {"keep-open", "yes"},   {"hr-seek", "yes"},
        {"ao", "null"},         {"vid", "no"},
        {"vo", "libmpv,null"},  {"hr-seek-demuxer-offset", "1"},
        {"cache", "no"},        {"gapless-audio", "no"},
        {"demuxer", "lavf"},    {"autoload-files", "no"},
        {"load-scripts", "no"}, {"osc", "no"},
        {"ytdl", "no"},         {"sid", "no"},
        {"terminal", "no"},     {"audio-display", "no"},
    };
    for (const auto& [name, value] : options)
        mpv_set_option_string(handle_, name, value);
    mpv_initialize(handle_);
}

BareLoop::~BareLoop() {
    mpv_terminate_destroy(handle_);
}

void BareLoop::load(const char* path) {
    const char* command[] = {"loadfile", path, nullptr};
    mpv_command(handle_, command);
    while (mpv_wait_event(handle_, 10)->event_id != MPV_EVENT_PLAYBACK_RESTART) {
    }
}

void BareLoop::unload() {
    const char* command[] = {"stop", nullptr};
    mpv_command(handle_, command);
    while (mpv_wait_event(handle_, 10)->event_id != MPV_EVENT_IDLE) {
    }
}

void BareLoop::pause(bool paused) {
    int flag = paused ? 1 : 0;
    mpv_set_property(handle_, "pause", MPV_FORMAT_FLAG, &flag);
}

void BareLoop::seek(double seconds) {
    const std::string target = std::to_string(seconds);
    const char* command[] = {"seek", target.c_str(), "absolute+exact", nullptr};
    mpv_command(handle_, command);
    while (mpv_wait_event(handle_, 10)->event_id != MPV_EVENT_PLAYBACK_RESTART) {
    }
}

double BareLoop::position() {
    double seconds = -1;
    mpv_get_property(handle_, "audio-pts", MPV_FORMAT_DOUBLE, &seconds);
    return seconds;
}
