#pragma once

#include "platform/wave_input.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace desktop {

// Sound that has arrived from the device and has not been taken yet. One thread puts, another one takes.
class SoundStore {
public:
    // `capacity` in bytes.
    explicit SoundStore(std::size_t capacity) : capacity_(capacity) {}

    // Waits while the store is full. Returns false if it has been closed.
    bool put(const char* bytes, std::size_t count);
    // Waits until the store is closed, at most for `time`. Returns true if it has been closed.
    bool isClosedWithin(std::chrono::milliseconds time);
    // Copies up to `most` available bytes; returns their number.
    std::size_t take(std::uint8_t* bytes, std::size_t most);
    // Ends all waiting; nothing is accepted any more.
    void close();

private:
    const std::size_t capacity_;
    std::mutex mutex_;
    std::condition_variable changed_; // there is room, or it was closed
    std::deque<char> bytes_;
    bool closed_ = false;
};

// One stream from the default input device. A separate thread reads the sound, so that a busy event loop
// loses nothing.
class PortAudioDevice {
public:
    // Lock this while creating a device: PortAudio can open and close on one thread at a time only.
    static std::mutex& library();

    // Scans the devices again, which takes as long as the sound system needs. On failure there is no stream,
    // and error() tells why.
    explicit PortAudioDevice(const platform::WaveFormat& format);
    PortAudioDevice(const PortAudioDevice&) = delete;
    PortAudioDevice& operator=(const PortAudioDevice&) = delete;
    ~PortAudioDevice();

    // PortAudio's error code (0 if the stream is open) and error text.
    int error() const { return error_; }
    const std::string& errorText() const { return errorText_; }

    // Error code and text for an unavailable device.
    static int unavailable();
    static std::string unavailableText();

    // Calls, on the reading thread, `arrived` whenever new sound can be taken, and `lost` with the sound
    // system's words when the device is gone and no more sound comes.
    void start(std::function<void()> arrived, std::function<void(const std::string&)> lost);
    // Discards sound not taken yet. A device that does not stop within a second is abandoned and delivers no
    // more sound.
    void stop();
    std::size_t take(std::uint8_t* bytes, std::size_t most);

    // How often the device has lost sound since it was opened.
    int overflows() const { return *overflows_; }

private:
    // State of the reading thread. It outlives the device if the sound system never answers.
    struct Reading {
        Reading(const PortAudioDevice& device, std::function<void()> arrived,
                std::function<void(const std::string&)> lost);

        void* stream;
        std::vector<char> chunk;
        SoundStore store;
        std::function<void()> arrived;
        std::function<void(const std::string&)> lost;
        std::shared_ptr<std::atomic_int> overflows;
        std::promise<void> ended;
    };
    // Reads `frames` frames at a time until the store is closed or the device is gone.
    static void read(Reading& reading, std::size_t frames);
    void fail(int error);

    void* stream_ = nullptr;
    std::size_t frameSize_;
    std::size_t chunkFrames_;
    std::size_t storeSize_;
    int error_ = 0;
    std::string errorText_;
    std::shared_ptr<std::atomic_int> overflows_ = std::make_shared<std::atomic_int>(0);
    std::shared_ptr<Reading> reading_; // null while the stream does not run
    std::thread reader_;
};

} // namespace desktop
