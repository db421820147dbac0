#include "portaudio_device.h"

#include <algorithm>
#include <alsa/asoundlib.h>
#include <cstdlib>
#include <portaudio.h>
#include <vector>

namespace desktop {

namespace {

constexpr int chunkPerSecond = 50;       // reads of 20 ms
constexpr std::size_t storeSeconds = 20; // for how long the event loop may be busy
// Seconds that the device itself holds, should this process not come to its turn.
constexpr double deviceLatency = 0.2;

// PortAudio ends the process when ALSA's configuration names no default device, as where ALSA's files are
// missing.
bool hasDefaultDevice() {
    snd_config_t* found = nullptr;
    return snd_config_update() >= 0 && snd_config_search(snd_config, "pcm.default", &found) >= 0;
}

} // namespace

bool SoundStore::put(const char* bytes, std::size_t count) {
    std::unique_lock lock(mutex_);
    room_.wait(lock, [&] { return closed_ || bytes_.size() + count <= capacity_; });
    if (!closed_)
        bytes_.insert(bytes_.end(), bytes, bytes + count);
    return !closed_;
}

std::size_t SoundStore::take(std::uint8_t* bytes, std::size_t most) {
    const std::lock_guard lock(mutex_);
    const auto count = static_cast<std::ptrdiff_t>(std::min(most, bytes_.size()));
    std::copy_n(bytes_.begin(), count, bytes);
    bytes_.erase(bytes_.begin(), bytes_.begin() + count);
    room_.notify_one();
    return static_cast<std::size_t>(count);
}

void SoundStore::close() {
    const std::lock_guard lock(mutex_);
    closed_ = true;
    room_.notify_one();
}

PortAudioDevice::PortAudioDevice(const platform::WaveFormat& format)
    : frameSize_(static_cast<std::size_t>(format.blockAlign)),
      chunkFrames_(static_cast<std::size_t>(format.samplesPerSec / chunkPerSecond)),
      storeSize_(static_cast<std::size_t>(format.avgBytesPerSec) * storeSeconds) {
    // One of the sound systems would start its server only because somebody looks whether it is there.
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
    Pa_CloseStream(stream_);
    Pa_Terminate();
}

void PortAudioDevice::fail(int error) {
    stream_ = nullptr;
    error_ = error;
    errorText_ = Pa_GetErrorText(error);
    if (error != paUnanticipatedHostError)
        return;
    if (const PaHostErrorInfo* const host = Pa_GetLastHostErrorInfo();
        host && host->errorText && *host->errorText)
        errorText_ = host->errorText;
}

void PortAudioDevice::start(std::function<void()> arrived) {
    stop();
    if (!stream_ || Pa_StartStream(stream_) != paNoError)
        return;
    store_ = std::make_unique<SoundStore>(storeSize_);
    reader_ = std::thread([this, arrived = std::move(arrived)] { read(*store_, arrived); });
}

void PortAudioDevice::stop() {
    if (!store_)
        return;
    store_->close();
    reader_.join();
    store_.reset();
    Pa_AbortStream(stream_);
}

std::size_t PortAudioDevice::take(std::uint8_t* bytes, std::size_t most) {
    return store_ ? store_->take(bytes, most) : 0;
}

void PortAudioDevice::read(SoundStore& store, const std::function<void()>& arrived) {
    std::vector<char> chunk(chunkFrames_ * frameSize_);
    while (true) {
        const PaError result = Pa_ReadStream(stream_, chunk.data(), chunkFrames_);
        if (result == paInputOverflowed)
            ++overflows_;
        else if (result != paNoError)
            return; // the device has gone: nothing more comes, which is all there is to tell
        if (!store.put(chunk.data(), chunk.size()))
            return;
        arrived();
    }
}

} // namespace desktop
