#include "portaudio_device.h"

#include <algorithm>
#include <alsa/asoundlib.h>
#include <cstdlib>
#include <portaudio.h>
#include <vector>

namespace desktop {

namespace {

constexpr int chunkPerSecond = 50;       // reads of 20 ms
constexpr std::size_t storeSeconds = 20; // how long the event loop may be busy without loss
// Seconds of sound that the device itself buffers while this process is not scheduled.
constexpr double deviceLatency = 0.2;
constexpr std::chrono::milliseconds betweenPolls(10); // polling interval for new sound
constexpr std::chrono::seconds stopPatience(1);       // for a sound system that was asked to stop

// PortAudio ends the process if ALSA's configuration names no default device, for example when ALSA's files
// are missing.
bool hasDefaultDevice() {
    snd_config_t* found = nullptr;
    return snd_config_update() >= 0 && snd_config_search(snd_config, "pcm.default", &found) >= 0;
}

std::string wordsFor(PaError error) {
    const PaHostErrorInfo* const host =
        error == paUnanticipatedHostError ? Pa_GetLastHostErrorInfo() : nullptr;
    return host && host->errorText && *host->errorText ? host->errorText : Pa_GetErrorText(error);
}

} // namespace

bool SoundStore::put(const char* bytes, std::size_t count) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return closed_ || bytes_.size() + count <= capacity_; });
    if (!closed_)
        bytes_.insert(bytes_.end(), bytes, bytes + count);
    return !closed_;
}

bool SoundStore::isClosedWithin(std::chrono::milliseconds time) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, time, [&] { return closed_; });
}

std::size_t SoundStore::take(std::uint8_t* bytes, std::size_t most) {
    const std::lock_guard lock(mutex_);
    const auto count = static_cast<std::ptrdiff_t>(std::min(most, bytes_.size()));
    std::copy_n(bytes_.begin(), count, bytes);
    bytes_.erase(bytes_.begin(), bytes_.begin() + count);
    changed_.notify_one();
    return static_cast<std::size_t>(count);
}

void SoundStore::close() {
    const std::lock_guard lock(mutex_);
    closed_ = true;
    changed_.notify_one();
}

PortAudioDevice::PortAudioDevice(const platform::WaveFormat& format)
    : frameSize_(static_cast<std::size_t>(format.blockAlign)),
      chunkFrames_(static_cast<std::size_t>(format.samplesPerSec / chunkPerSecond)),
      storeSize_(static_cast<std::size_t>(format.avgBytesPerSec) * storeSeconds) {
    // JACK would start its server merely because PortAudio checks for it.
    ::setenv("JACK_NO_START_SERVER", "1", 0);
    if (!hasDefaultDevice()) {
        fail(paDeviceUnavailable);
        return;
    }
    if (const PaError failed = Pa_Initialize(); failed != paNoError) {
        fail(failed);
        return;
    }
    PaStreamParameters input{};
    input.device = Pa_GetDefaultInputDevice();
    input.channelCount = format.channels;
    input.sampleFormat = format.bitsPerSample == 8 ? paUInt8 : paInt16;
    input.suggestedLatency = deviceLatency;
    PaError failed = paDeviceUnavailable;
    if (input.device != paNoDevice)
        failed = Pa_OpenStream(&stream_, &input, nullptr, format.samplesPerSec, paFramesPerBufferUnspecified,
                               paClipOff | paDitherOff, nullptr, nullptr);
    if (failed != paNoError) {
        fail(failed);
        Pa_Terminate();
    }
}

PortAudioDevice::~PortAudioDevice() {
    stop();
    if (!stream_)
        return;
    const std::lock_guard alone(library());
    Pa_CloseStream(stream_);
    Pa_Terminate();
}

std::mutex& PortAudioDevice::library() {
    static std::mutex mutex;
    return mutex;
}

int PortAudioDevice::unavailable() {
    return paDeviceUnavailable;
}

std::string PortAudioDevice::unavailableText() {
    return Pa_GetErrorText(paDeviceUnavailable);
}

void PortAudioDevice::fail(int error) {
    stream_ = nullptr;
    error_ = error;
    errorText_ = wordsFor(error);
}

PortAudioDevice::Reading::Reading(const PortAudioDevice& device, std::function<void()> whenArrived,
                                  std::function<void(const std::string&)> whenLost)
    : stream(device.stream_), chunk(device.chunkFrames_ * device.frameSize_), store(device.storeSize_),
      arrived(std::move(whenArrived)), lost(std::move(whenLost)), overflows(device.overflows_) {}

void PortAudioDevice::start(std::function<void()> arrived, std::function<void(const std::string&)> lost) {
    stop();
    if (!stream_)
        return;
    reading_ = std::make_shared<Reading>(*this, std::move(arrived), std::move(lost));
    reader_ = std::thread([reading = reading_, frames = chunkFrames_] { read(*reading, frames); });
}

void PortAudioDevice::stop() {
    if (!reading_)
        return;
    reading_->store.close();
    if (reading_->ended.get_future().wait_for(stopPatience) == std::future_status::ready) {
        reader_.join();
    } else {
        reader_.detach();
        stream_ = nullptr; // never closed: closing would block as well
    }
    reading_.reset();
}

std::size_t PortAudioDevice::take(std::uint8_t* bytes, std::size_t most) {
    return reading_ ? reading_->store.take(bytes, most) : 0;
}

void PortAudioDevice::read(Reading& reading, std::size_t frames) {
    // A sound system that hangs when a stream starts blocks this thread only.
    PaError result = Pa_StartStream(reading.stream);
    bool wanted = true;
    while (result == paNoError && wanted) {
        // Pa_ReadStream would wait forever for a suspended source, and nobody could stop it.
        const signed long available = Pa_GetStreamReadAvailable(reading.stream);
        if (available >= 0 && available < static_cast<signed long>(frames)) {
            wanted = !reading.store.isClosedWithin(betweenPolls);
            continue;
        }
        result = Pa_ReadStream(reading.stream, reading.chunk.data(), frames);
        if (result == paInputOverflowed) {
            ++*reading.overflows;
            result = paNoError;
        }
        if (result != paNoError)
            break;
        wanted = reading.store.put(reading.chunk.data(), reading.chunk.size());
        if (wanted)
            reading.arrived();
    }
    if (result != paNoError)
        reading.lost(wordsFor(result));
    Pa_AbortStream(reading.stream);
    reading.ended.set_value();
}

} // namespace desktop
