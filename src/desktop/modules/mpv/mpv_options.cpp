#include "mpv_options.h"

#include "base/failure.h"

#include <mpv/client.h>

namespace desktop {

namespace {

// Sound servers first, then the bare device, and none of the other outputs that mpv would try: those cost 100
// ms where none answers.
constexpr const char* usualOutputs = "pulse,pipewire,alsa";

struct Option {
    const char* name;
    const char* value;
};

constexpr Option playbackOptions[] = {
    {"idle", "yes"},
    {"keep-open", "yes"},
    {"hr-seek", "yes"},
    // An mp3 frame may need the bytes of earlier frames: without this lead-in, the target of a seek is
    // silent.
    {"hr-seek-demuxer-offset", "1"},
    // With this option, mpv inserts its pitch filter only while the speed is not 1. It must not be there all
    // the time: it starts 10 ms early and loses the last 40 ms of a file.
    {"audio-pitch-correction", "yes"},
    // Reports the end after the last sound has been played, not when it has been handed to the sound system.
    {"gapless-audio", "no"},
    {"audio-fallback-to-null", "yes"},
    {"audio-client-name", "Quillmere"},
    {"volume-max", "100"},
    // Local files are read fast enough; a cache would only hold a second copy.
    {"cache", "no"},
};

// By default, this version's pitch filter is silent above four times the speed. Later versions have neither
// this bug nor the option.
constexpr Option pitchFilterDefaults{"af-defaults", "scaletempo2=max-speed=8"};

// Exactly one file is played: it must not pull in other files, network hosts or scripts.
constexpr Option isolationOptions[] = {
    {"config", "no"},
    {"load-scripts", "no"},
    {"osc", "no"},
    {"ytdl", "no"},
    {"load-stats-overlay", "no"},
    {"load-osd-console", "no"},
    {"load-auto-profiles", "no"},
    {"access-references", "no"},
    {"load-unsafe-playlists", "no"},
    // Only this demuxer: the others are for playlists, archives, edit lists and discs.
    {"demuxer", "lavf"},
    // mpv itself opens the file, so anything that a demuxer opens in addition (a session description, a
    // concat script) is blocked.
    {"demuxer-lavf-o", "protocol_whitelist=none"},
    {"autoload-files", "no"},
    {"audio-file-auto", "no"},
    {"sub-auto", "no"},
    {"cover-art-auto", "no"},
    {"audio-display", "no"},
    {"sid", "no"},
    {"resume-playback", "no"},
};

constexpr Option quietOptions[] = {
    {"terminal", "no"},
    {"msg-level", "all=no"},
    {"input-default-bindings", "no"},
    {"input-builtin-bindings", "no"},
    {"input-media-keys", "no"},
    {"input-vo-keyboard", "no"},
    {"osd-level", "0"},
    // The window that shows the video handles the mouse itself.
    {"input-cursor", "no"},
    {"stop-screensaver", "no"},
    {"vid", "no"},
};

void setOption(mpv_handle* handle, const Option& option) {
    if (const int error = mpv_set_option_string(handle, option.name, option.value); error < 0)
        throw base::Failure(std::string(option.name) + ": " + mpv_error_string(error));
}

} // namespace

void setOptions(mpv_handle* handle, const MpvOptions& options) {
    for (const Option& option : playbackOptions)
        setOption(handle, option);
    for (const Option& option : isolationOptions)
        setOption(handle, option);
    for (const Option& option : quietOptions)
        setOption(handle, option);
    mpv_set_option_string(handle, pitchFilterDefaults.name, pitchFilterDefaults.value);
    setOption(handle, {"ao", options.audioOutput.empty() ? usualOutputs : options.audioOutput.c_str()});
}

} // namespace desktop
